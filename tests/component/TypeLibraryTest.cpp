// The type library is what was promised: slots, names, identifiers, types and help strings.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <sstream>
#include <string>

#include "fetchkit/base/Utf8.h"
#include "support/Component.h"

namespace fetchkit::test {
namespace {

std::string TextOf(const GUID& id) {
  wchar_t text[40] = {};
  StringFromGUID2(id, text, 40);
  return {text, text + 38};
}

// A help string in quotation marks, nothing for none.
std::string HelpOf(ITypeInfo* info, MEMBERID member = MEMBERID_NIL) {
  Bstr help;
  info->GetDocumentation(member, nullptr, help.Out(), nullptr, nullptr);
  return help.view().empty() ? "" : " \"" + ToUtf8(help.view()) + "\"";
}

std::string TypeText(ITypeInfo* info, const TYPEDESC& type) {
  static const std::map<VARTYPE, const char*> kNames = {
      {VT_I2, "short"},  {VT_I4, "long"},   {VT_R4, "float"},        {VT_R8, "double"},
      {VT_DATE, "DATE"}, {VT_BSTR, "BSTR"}, {VT_BOOL, "BOOL"},       {VT_VARIANT, "VARIANT"},
      {VT_UI1, "byte"},  {VT_VOID, "void"}, {VT_HRESULT, "HRESULT"}, {VT_DISPATCH, "IDispatch*"}};
  if (type.vt == VT_PTR) return TypeText(info, *type.lptdesc) + "*";
  if (type.vt == VT_SAFEARRAY) return "SAFEARRAY(" + TypeText(info, *type.lptdesc) + ")";
  if (type.vt == VT_USERDEFINED) {
    ComPtr<ITypeInfo> referred;
    if (FAILED(info->GetRefTypeInfo(type.hreftype, referred.Out()))) return "?";
    return NameOf(referred.get());
  }
  return kNames.at(type.vt);
}

void WriteFunction(std::ostream& out, ITypeInfo* info, const FUNCDESC& function) {
  static const std::pair<WORD, const char*> kFlags[] = {{PARAMFLAG_FIN, "in "},
                                                        {PARAMFLAG_FOUT, "out "},
                                                        {PARAMFLAG_FRETVAL, "retval "},
                                                        {PARAMFLAG_FOPT, "optional "},
                                                        {PARAMFLAG_FHASDEFAULT, "default "}};
  out << "  slot " << function.oVft / static_cast<int>(sizeof(void*)) << " id " << function.memid
      << " kind " << function.invkind << " flags " << function.wFuncFlags << ' '
      << TypeText(info, function.elemdescFunc.tdesc) << ' ' << NameOf(info, function.memid) << '(';
  std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1);
  UINT count = 0;
  info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    out << (i ? ", " : "");
    for (const auto& [flag, name] : kFlags)
      if (parameter.paramdesc.wParamFlags & flag) out << name;
    out << TypeText(info, parameter.tdesc);
    const auto at = static_cast<std::size_t>(i) + 1;
    if (names[at]) out << ' ' << ToUtf8(ViewOf(names[at]));
  }
  for (const BSTR name : names)
    SysFreeString(name);
  out << ')' << HelpOf(info, function.memid) << '\n';
}

void WriteVariables(std::ostream& out, ITypeInfo* info, const TYPEATTR& attributes) {
  for (UINT index = 0; index < attributes.cVars; ++index) {
    VARDESC* variable = nullptr;
    info->GetVarDesc(index, &variable);
    out << "  " << NameOf(info, variable->memid);
    if (variable->varkind == VAR_CONST)
      out << " = " << variable->lpvarValue->lVal << '\n';
    else
      out << " at " << variable->oInst << ": " << TypeText(info, variable->elemdescVar.tdesc)
          << '\n';
    info->ReleaseVarDesc(variable);
  }
}

void WriteType(std::ostream& out, ITypeInfo* info, const TYPEATTR& attributes) {
  static const char* const kKinds[] = {"enum",     "record",  "module", "interface",
                                       "dispatch", "coclass", "alias",  "union"};
  out << kKinds[attributes.typekind] << ' ' << NameOf(info) << ' ' << TextOf(attributes.guid)
      << " flags " << attributes.wTypeFlags << " size " << attributes.cbSizeInstance << HelpOf(info)
      << '\n';
  for (UINT index = 0; index < attributes.cImplTypes; ++index) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> implemented;
    info->GetRefTypeOfImplType(index, &reference);
    if (SUCCEEDED(info->GetRefTypeInfo(reference, implemented.Out())))
      out << "  is a " << NameOf(implemented.get()) << '\n';
  }
  if (attributes.typekind == TKIND_DISPATCH)
    ForEachFunction(info, [&](ITypeInfo* own, FUNCDESC& each) { WriteFunction(out, own, each); });
  WriteVariables(out, info, attributes);
}

TEST(TypeLibrary, IsTheOneThatWasPromised) {
  std::ostringstream out;
  const ComPtr<ITypeLib> library = TypeLibraryOfComponent();
  TLIBATTR* attributes = nullptr;
  Bstr name;
  Bstr help;
  library->GetLibAttr(&attributes);
  library->GetDocumentation(-1, name.Out(), help.Out(), nullptr, nullptr);
  out << "library " << ToUtf8(name.view()) << ' ' << TextOf(attributes->guid) << ' '
      << attributes->wMajorVerNum << '.' << attributes->wMinorVerNum << " \"" << ToUtf8(help.view())
      << "\"\n";
  library->ReleaseTLibAttr(attributes);
  ForEachType([&](ITypeInfo* info, const TYPEATTR& each) { WriteType(out, info, each); });
  if constexpr (sizeof(void*) == 8) {
    ExpectKept("typelib.txt", out.str());
  } else {
    // Sizes and offsets are kept as 64-bit callers have them.
    const std::regex layout(" (size|at) [0-9]+");
    EXPECT_EQ(std::regex_replace(out.str(), layout, ""),
              std::regex_replace(Kept("typelib.txt"), layout, ""));
  }
}

}  // namespace
}  // namespace fetchkit::test
