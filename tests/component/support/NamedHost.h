// A host that has no interface and is called by name alone, as one in a script is.
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>

#include "component/Windows.h"
#include "component/com/ComPtr.h"
#include "fetchkit/host/SessionConnection.h"

namespace fetchkit::test {

// An object of members that are called by name, as a class of a script has them.
class ScriptObject : public IDispatch {
 public:
  // arguments: in their order, for a member that writes into them.
  using Member = std::function<Value(std::span<VARIANT> arguments)>;
  using Members = std::map<std::string, Member>;

  // rows: what a recordset stands for.
  static ComPtr<IDispatch> Make(Members members, RecordsetPtr rows = nullptr);
  static RecordsetPtr RowsOf(IUnknown* object);

  STDMETHODIMP QueryInterface(REFIID asked, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override;
  STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) noexcept override;

  // Of all of them: how often each name of an object was asked for at most, and calls.
  static inline int mostAsked = 0;
  static inline int calls = 0;

 private:
  ScriptObject(Members members, RecordsetPtr rows);
  virtual ~ScriptObject();

  ULONG references_ = 1;
  Members members_;
  std::map<std::string, int> asked_;
  RecordsetPtr rows_;
};

// How a host's members take references: as variants, as variables of their own types, which is what
// typed parameters are, or not at all, so that they answer with what they open.
enum class References { Variants, Typed, None };

ComPtr<IDispatch> NamedConnectionOf(SessionConnectionPtr connection, References references);
ComPtr<IDispatch> NamedContextOf(std::shared_ptr<HostContext> context);
ComPtr<IDispatch> NamedRecordsetOf(RecordsetPtr rows);

}  // namespace fetchkit::test
