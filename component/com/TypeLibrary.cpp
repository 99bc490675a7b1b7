#include "component/com/TypeLibrary.h"

#include <cstring>
#include <map>
#include <new>
#include <utility>

#include "component/com/Boundary.h"
#include "component/com/Locked.h"
#include "component/com/Module.h"

namespace fetchkit::TypeLibrary {
namespace {

struct ById {
  bool operator()(const GUID& a, const GUID& b) const { return std::memcmp(&a, &b, sizeof a) < 0; }
};

struct Member {
  IID interfaceId;
  DISPID id;
  WORD flags;

  bool operator<(const Member& other) const {
    const int order = std::memcmp(&interfaceId, &other.interfaceId, sizeof interfaceId);
    if (order != 0) return order < 0;
    return id != other.id ? id < other.id : flags < other.flags;
  }
};

struct Kept {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeLib> second;
  std::map<GUID, ComPtr<ITypeInfo>, ById> described;
  std::map<GUID, ComPtr<IRecordInfo>, ById> records;
  std::map<Member, std::vector<VARTYPE>> referred;
};

// Made at first use and let go by Forget, not by a destructor at unloading, when the system's
// objects must not be touched any more.
SRWLOCK lock = SRWLOCK_INIT;
Kept* kept = nullptr;

// The lock must be held as long as the result is used.
Kept& All() {
  if (!kept) kept = new Kept;
  return *kept;
}

void Check(HRESULT result) {
  if (FAILED(result)) throw ComError{result};
}

HRESULT Load(TextView resource, ComPtr<ITypeLib>& library) {
  const Text path = Join(Module::Path(), resource);
  return LoadTypeLibEx(reinterpret_cast<const OLECHAR*>(path.c_str()), REGKIND_NONE, library.Out());
}

ComPtr<ITypeLib> LibraryOf(Kept& all) {
  if (!all.library) Check(Load(u"", all.library));
  return all.library;
}

ComPtr<ITypeInfo> Described(Kept& all, const GUID& id) {
  auto& entry = all.described[id];
  if (entry) return entry;
  HRESULT result = LibraryOf(all)->GetTypeInfoOfGuid(id, entry.Out());
  if (FAILED(result) && (all.second || SUCCEEDED(Load(u"\\2", all.second))))
    result = all.second->GetTypeInfoOfGuid(id, entry.Out());
  Check(result);
  return entry;
}

VARTYPE ReferredType(ITypeInfo& info, const ELEMDESC& parameter) {
  if (parameter.tdesc.vt != VT_PTR || (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0)
    return VT_EMPTY;
  const TYPEDESC& target = *parameter.tdesc.lptdesc;
  if (target.vt == VT_PTR) return VT_DISPATCH;  // an object by reference
  if (target.vt != VT_USERDEFINED) return target.vt;
  ComPtr<ITypeInfo> type;
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetRefTypeInfo(target.hreftype, type.Out())) ||
      FAILED(type->GetTypeAttr(&attributes)))
    return VT_EMPTY;
  const TYPEKIND kind = attributes->typekind;
  type->ReleaseTypeAttr(attributes);
  // An interface is a plain pointer here: an object by value.
  return kind == TKIND_ENUM ? VARTYPE{VT_I4} : VARTYPE{VT_EMPTY};
}

std::vector<VARTYPE> ReadReferred(ITypeInfo& info, DISPID member, WORD flags) {
  std::vector<VARTYPE> types;
  FUNCDESC* function = nullptr;
  // The system knows the end of the functions; no other count is needed.
  for (UINT index = 0; types.empty() && SUCCEEDED(info.GetFuncDesc(index, &function)); ++index) {
    if (function->memid == member && (function->invkind & flags) != 0)
      for (SHORT each = 0; each < function->cParams; ++each)
        types.push_back(ReferredType(info, function->lprgelemdescParam[each]));
    info.ReleaseFuncDesc(function);
  }
  return types;
}

GUID IdOf(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  Check(info.GetTypeAttr(&attributes));
  const GUID id = attributes->guid;
  info.ReleaseTypeAttr(attributes);
  return id;
}

GUID ImplementedBy(ITypeInfo& info) {
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> implemented;
  Check(info.GetRefTypeOfImplType(0, &reference));
  Check(info.GetRefTypeInfo(reference, implemented.Out()));
  return IdOf(*implemented.get());
}

}  // namespace

ComPtr<ITypeLib> Library() {
  const Locked held(lock);
  return LibraryOf(All());
}

ComPtr<ITypeInfo> Describe(const GUID& id) {
  const Locked held(lock);
  return Described(All(), id);
}

ComPtr<ITypeInfo> ClassOf(const IID& interfaceId) {
  const Locked held(lock);
  const ComPtr<ITypeLib> library = LibraryOf(All());
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    TYPEKIND kind{};
    ComPtr<ITypeInfo> info;
    Check(library->GetTypeInfoType(index, &kind));
    if (kind != TKIND_COCLASS) continue;
    Check(library->GetTypeInfo(index, info.Out()));
    if (ImplementedBy(*info.get()) == interfaceId) return info;
  }
  throw ComError{TYPE_E_ELEMENTNOTFOUND};
}

ComPtr<IRecordInfo> Record(const GUID& id) {
  const Locked held(lock);
  auto& entry = All().records[id];
  if (!entry) Check(GetRecordInfoFromTypeInfo(Described(All(), id).get(), entry.Out()));
  return entry;
}

const std::vector<VARTYPE>& Referred(const IID& interfaceId, DISPID member, WORD flags) {
  const Locked held(lock);
  const auto [entry, fresh] = All().referred.try_emplace(Member{interfaceId, member, flags});
  if (fresh) entry->second = ReadReferred(*Described(All(), interfaceId).get(), member, flags);
  return entry->second;
}

void Forget() {
  Kept* going = nullptr;
  {
    const Locked held(lock);
    going = std::exchange(kept, nullptr);
  }
  delete going;
}

}  // namespace fetchkit::TypeLibrary
