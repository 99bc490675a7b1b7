// The type library is what was promised: slots, names, identifiers, types and help strings.
#include <gtest/gtest.h>

#include <fstream>
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

// Name and help string of a type or member.
struct Documented {
  Documented(ITypeInfo* info, MEMBERID member) {
    Bstr nameText;
    Bstr helpText;
    info->GetDocumentation(member, nameText.Out(), helpText.Out(), nullptr, nullptr);
    name = ToUtf8(nameText.view());
    if (!helpText.view().empty()) help = " \"" + ToUtf8(helpText.view()) + "\"";
  }
  std::string name;
  std::string help;
};

std::string TypeText(ITypeInfo* info, const TYPEDESC& type) {
  static const std::pair<VARTYPE, const char*> kNames[] = {
      {VT_I2, "short"},  {VT_I4, "long"},   {VT_R4, "float"},        {VT_R8, "double"},
      {VT_DATE, "DATE"}, {VT_BSTR, "BSTR"}, {VT_BOOL, "BOOL"},       {VT_VARIANT, "VARIANT"},
      {VT_UI1, "byte"},  {VT_VOID, "void"}, {VT_HRESULT, "HRESULT"}, {VT_DISPATCH, "IDispatch*"}};
  if (type.vt == VT_PTR) return TypeText(info, *type.lptdesc) + "*";
  if (type.vt == VT_SAFEARRAY) return "SAFEARRAY(" + TypeText(info, *type.lptdesc) + ")";
  if (type.vt == VT_USERDEFINED) {
    ComPtr<ITypeInfo> referred;
    if (FAILED(info->GetRefTypeInfo(type.hreftype, referred.Out()))) return "?";
    return Documented(referred.get(), MEMBERID_NIL).name;
  }
  for (const auto& [known, name] : kNames)
    if (known == type.vt) return name;
  return "VARTYPE " + std::to_string(type.vt);
}

void WriteFunctions(std::ostream& out, ITypeInfo* info, const TYPEATTR& attributes) {
  static const std::pair<WORD, const char*> kFlags[] = {{PARAMFLAG_FIN, "in "},
                                                        {PARAMFLAG_FOUT, "out "},
                                                        {PARAMFLAG_FRETVAL, "retval "},
                                                        {PARAMFLAG_FOPT, "optional "},
                                                        {PARAMFLAG_FHASDEFAULT, "default "}};
  for (UINT index = 0; index < attributes.cFuncs; ++index) {
    FUNCDESC* function = nullptr;
    info->GetFuncDesc(index, &function);
    const Documented documented(info, function->memid);
    out << "  slot " << function->oVft / static_cast<int>(sizeof(void*)) << " id "
        << function->memid << " kind " << function->invkind << " flags " << function->wFuncFlags
        << ' ' << TypeText(info, function->elemdescFunc.tdesc) << ' ' << documented.name << '(';
    std::vector<BSTR> names(static_cast<std::size_t>(function->cParams) + 1);
    UINT count = 0;
    info->GetNames(function->memid, names.data(), static_cast<UINT>(names.size()), &count);
    for (SHORT i = 0; i < function->cParams; ++i) {
      const ELEMDESC& parameter = function->lprgelemdescParam[i];
      out << (i ? ", " : "");
      for (const auto& [flag, name] : kFlags)
        if (parameter.paramdesc.wParamFlags & flag) out << name;
      out << TypeText(info, parameter.tdesc);
      const auto at = static_cast<std::size_t>(i) + 1;
      if (names[at]) out << ' ' << ToUtf8(ViewOf(names[at]));
    }
    for (const BSTR name : names)
      SysFreeString(name);
    out << ')' << documented.help << '\n';
    info->ReleaseFuncDesc(function);
  }
}

void WriteVariables(std::ostream& out, ITypeInfo* info, const TYPEATTR& attributes) {
  for (UINT index = 0; index < attributes.cVars; ++index) {
    VARDESC* variable = nullptr;
    info->GetVarDesc(index, &variable);
    out << "  " << Documented(info, variable->memid).name;
    if (variable->varkind == VAR_CONST)
      out << " = " << variable->lpvarValue->lVal << '\n';
    else
      out << " at " << variable->oInst << ": " << TypeText(info, variable->elemdescVar.tdesc)
          << '\n';
    info->ReleaseVarDesc(variable);
  }
}

void WriteType(std::ostream& out, ITypeInfo* info) {
  static const char* const kKinds[] = {"enum",     "record",  "module", "interface",
                                       "dispatch", "coclass", "alias",  "union"};
  TYPEATTR* attributes = nullptr;
  info->GetTypeAttr(&attributes);
  const Documented documented(info, MEMBERID_NIL);
  out << kKinds[attributes->typekind] << ' ' << documented.name << ' ' << TextOf(attributes->guid)
      << " flags " << attributes->wTypeFlags << " size " << attributes->cbSizeInstance
      << documented.help << '\n';
  for (UINT index = 0; index < attributes->cImplTypes; ++index) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> implemented;
    info->GetRefTypeOfImplType(index, &reference);
    if (SUCCEEDED(info->GetRefTypeInfo(reference, implemented.Out())))
      out << "  is a " << Documented(implemented.get(), MEMBERID_NIL).name << '\n';
  }
  if (attributes->typekind == TKIND_DISPATCH) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> functions;
    TYPEATTR* own = nullptr;
    EXPECT_EQ(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(info->GetRefTypeInfo(reference, functions.Out()), S_OK);
    functions->GetTypeAttr(&own);
    WriteFunctions(out, functions.get(), *own);
    functions->ReleaseTypeAttr(own);
  }
  WriteVariables(out, info, *attributes);
  info->ReleaseTypeAttr(attributes);
}

std::string Dump() {
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
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> info;
    library->GetTypeInfo(index, info.Out());
    WriteType(out, info.get());
  }
  return out.str();
}

// The kept dump is in the program as a resource.
std::string Kept() {
  const HRSRC found = FindResourceW(nullptr, L"KEPT", RT_RCDATA);
  if (!found) return {};
  const HGLOBAL loaded = LoadResource(nullptr, found);
  return {static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, found)};
}

TEST(TypeLibrary, IsTheOneThatWasPromised) {
  const std::string dump = Dump();
  if (dump == Kept()) return;
  std::ofstream("typelib.txt", std::ios::binary) << dump;
  std::istringstream now(dump);
  std::istringstream kept(Kept());
  std::string line;
  std::string keptLine;
  while (std::getline(now, line) && std::getline(kept, keptLine) && line == keptLine) {
  }
  ADD_FAILURE() << "first difference:\n  kept: " << keptLine << "\n  now:  " << line
                << "\nThe whole is in typelib.txt beside this program; if members were only added "
                   "behind the last ones, it is to be kept as tests/component/typelib.txt.";
}

}  // namespace
}  // namespace fetchkit::test
