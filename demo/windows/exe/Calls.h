// Calling the library through its interfaces: a refused call becomes an exception, results become
// the demo's texts.
#pragma once

#include <string>

#include "component/com/Bstr.h"
#include "component/com/ComPtr.h"
#include "component/com/Variants.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {

// The system's text for an HRESULT, with its number.
std::string DescribeResult(HRESULT result);

// std::runtime_error with the callee's own description, or the system's, unless the call went
// through.
void Check(HRESULT result);

// member: a member of I with these arguments and a text as its result.
template <class I, class Member, class... A>
std::string TextOf(const ComPtr<I>& object, Member member, A... arguments) {
  Bstr text;
  Check((object.get()->*member)(arguments..., text.Out()));
  return ToUtf8(text.view());
}

template <class I, class Member, class... A>
bool FlagOf(const ComPtr<I>& object, Member member, A... arguments) {
  VARIANT_BOOL flag = VARIANT_FALSE;
  Check((object.get()->*member)(arguments..., &flag));
  return flag != VARIANT_FALSE;
}

// Numbers of any width.
template <class I, class Number>
long NumberOf(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(Number*)) {
  Number number = 0;
  Check((object.get()->*member)(&number));
  return number;
}

template <class I, class Other>
ComPtr<Other> ObjectOf(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(Other**)) {
  ComPtr<Other> other;
  Check((object.get()->*member)(other.Out()));
  return other;
}

}  // namespace fetchkit::demo
