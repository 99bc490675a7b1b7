// Which core object has which living COM object.
#pragma once

namespace fetchkit::Shells {

// shell: the dual interface of the object, as Find gives it back. Not counted; the shell removes
// itself when it goes.
void Add(const void* core, void* shell);
void Remove(const void* core) noexcept;

// Null when the core object has none. Only of use on the apartment's own thread: core objects are
// not shared between threads.
void* Find(const void* core);

}  // namespace fetchkit::Shells
