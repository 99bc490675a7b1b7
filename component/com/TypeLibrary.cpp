#include "component/com/TypeLibrary.h"

#include <cstring>
#include <map>
#include <new>
#include <utility>

#include "component/com/Boundary.h"
#include "component/com/Module.h"

namespace fetchkit::TypeLibrary {
namespace {

struct ById {
  bool operator()(const GUID& a, const GUID& b) const { return std::memcmp(&a, &b, sizeof a) < 0; }
};

struct Kept {
  ComPtr<ITypeLib> library;
  std::map<GUID, ComPtr<ITypeInfo>, ById> described;
  std::map<GUID, ComPtr<IRecordInfo>, ById> records;
};

// Made at first use and let go by Forget, not by a destructor at unloading, when the system's
// objects must not be touched any more.
SRWLOCK lock = SRWLOCK_INIT;
Kept* kept = nullptr;

class Locked {
 public:
  Locked() {
    AcquireSRWLockExclusive(&lock);
    if (!kept) kept = new (std::nothrow) Kept;
  }
  ~Locked() { ReleaseSRWLockExclusive(&lock); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

  Kept& operator*() const {
    if (!kept) throw std::bad_alloc();
    return *kept;
  }
};

void Check(HRESULT result) {
  if (FAILED(result)) throw ComError{result};
}

ComPtr<ITypeLib> LibraryOf(Kept& all) {
  if (!all.library) {
    const Text path = Module::Path();
    Check(LoadTypeLibEx(reinterpret_cast<const OLECHAR*>(path.c_str()), REGKIND_NONE,
                        all.library.Out()));
  }
  return all.library;
}

ComPtr<ITypeInfo> Described(Kept& all, const GUID& id) {
  auto& entry = all.described[id];
  if (!entry) Check(LibraryOf(all)->GetTypeInfoOfGuid(id, entry.Out()));
  return entry;
}

}  // namespace

ComPtr<ITypeLib> Library() {
  const Locked all;
  return LibraryOf(*all);
}

ComPtr<ITypeInfo> Describe(const GUID& id) {
  const Locked all;
  return Described(*all, id);
}

ComPtr<IRecordInfo> Record(const GUID& id) {
  const Locked all;
  auto& entry = (*all).records[id];
  if (!entry) Check(GetRecordInfoFromTypeInfo(Described(*all, id).get(), entry.Out()));
  return entry;
}

void Forget() {
  AcquireSRWLockExclusive(&lock);
  Kept* going = std::exchange(kept, nullptr);
  ReleaseSRWLockExclusive(&lock);
  delete going;
}

}  // namespace fetchkit::TypeLibrary
