// The registry entries of the DLL's classes and its type library.
#pragma once

#include <span>

#include "component/Windows.h"
#include "component/com/ClassFactory.h"

namespace fetchkit {

enum class RegistrationScope {
  Machine,  // for all users; needs administrator rights
  User,     // for the current user
};

// Enters the classes, apartment-threaded, with the type library in the DLL's resources. When
// anything is refused, what was entered is taken out again and the refusal is the result.
HRESULT Register(std::span<const CreatableClass> classes, RegistrationScope scope) noexcept;

// Takes everything out, as far as it goes; the first refusal is the result. Entries that are not
// there are no failure. The classes' names stay as long as the other size, 32 or 64 bits, has them.
HRESULT Unregister(std::span<const CreatableClass> classes, RegistrationScope scope) noexcept;

}  // namespace fetchkit
