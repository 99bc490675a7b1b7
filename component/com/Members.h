// Shells in one line per member. The interface says the types that the caller passes, the core's
// member those that it takes; what lies between follows from the two.
#pragma once

#include <cstddef>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "component/com/ComObject.h"

namespace fetchkit {

// The types of a COM member's arguments.
template <class>
struct ComMember;
template <class I, class... Raw>
struct ComMember<HRESULT (STDMETHODCALLTYPE I::*)(Raw...)> {
  template <std::size_t index>
  using Argument = std::tuple_element_t<index, std::tuple<Raw...>>;
};

// An argument as the core's member takes it, a reference as one that is written back.
template <class Core, class Raw>
auto Argument(Raw raw) {
  using Plain = std::remove_cvref_t<Core>;
  if constexpr (std::is_same_v<Raw, BSTR>)
    return Plain(ViewOf(raw));
  else if constexpr (std::is_same_v<Raw, BSTR*>)
    return InOutText(raw);
  else if constexpr (std::is_same_v<Raw, VARIANT*>)
    return InOutValue(raw);
  else if constexpr (std::is_pointer_v<Raw>)
    return ByReference<Plain, std::remove_pointer_t<Raw>>(raw);
  else if constexpr (std::is_same_v<Raw, VARIANT>)
    return ValueOf(raw);
  else if constexpr (std::is_same_v<Plain, bool>)
    return raw != VARIANT_FALSE;
  else if constexpr (std::is_enum_v<Plain>)
    return static_cast<Plain>(raw);
  else
    return Plain{raw};
}

// Calls the core's member. Where that has a result, the last of the arguments is the place for it.
template <class R, class... A, class Member, class... Raw>
HRESULT ForwardTo(Member&& member, Raw... raw) noexcept {
  const std::tuple<Raw...> given(raw...);
  const auto call = [&]<std::size_t... I>(std::index_sequence<I...>) {
    return member(Argument<A>(std::get<I>(given))...);
  };
  if constexpr (std::is_void_v<R>)
    return Run([&] { call(std::index_sequence_for<A...>()); });
  else
    return Answer(std::get<sizeof...(A)>(given),
                  [&] { return call(std::index_sequence_for<A...>()); });
}
template <class Core, class R, class... A, class... Raw>
HRESULT Forward(Core& core, R (Core::*member)(A...), Raw... raw) noexcept {
  return ForwardTo<R, A...>(std::bind_front(member, &core), raw...);
}
template <class Core, class R, class... A, class... Raw>
HRESULT Forward(Core& core, R (Core::*member)(A...) const, Raw... raw) noexcept {
  return ForwardTo<R, A...>(std::bind_front(member, &core), raw...);
}
template <class Core, class R, class... A, class... Raw>
HRESULT Forward(Core&, R (*member)(A...), Raw... raw) noexcept {
  return ForwardTo<R, A...>(member, raw...);
}

}  // namespace fetchkit

#define FETCHKIT_TYPE(member, index) \
  typename fetchkit::ComMember<decltype(&Dual::member)>::template Argument<index>
#define FETCHKIT_TYPES_0(member)
#define FETCHKIT_TYPES_1(member) FETCHKIT_TYPE(member, 0) a1
#define FETCHKIT_TYPES_2(member) FETCHKIT_TYPES_1(member), FETCHKIT_TYPE(member, 1) a2
#define FETCHKIT_TYPES_3(member) FETCHKIT_TYPES_2(member), FETCHKIT_TYPE(member, 2) a3
#define FETCHKIT_TYPES_4(member) FETCHKIT_TYPES_3(member), FETCHKIT_TYPE(member, 3) a4
#define FETCHKIT_TYPES_5(member) FETCHKIT_TYPES_4(member), FETCHKIT_TYPE(member, 4) a5
#define FETCHKIT_TYPES_6(member) FETCHKIT_TYPES_5(member), FETCHKIT_TYPE(member, 5) a6
#define FETCHKIT_TYPES_7(member) FETCHKIT_TYPES_6(member), FETCHKIT_TYPE(member, 6) a7
#define FETCHKIT_NAMES_0
#define FETCHKIT_NAMES_1 , a1
#define FETCHKIT_NAMES_2 FETCHKIT_NAMES_1, a2
#define FETCHKIT_NAMES_3 FETCHKIT_NAMES_2, a3
#define FETCHKIT_NAMES_4 FETCHKIT_NAMES_3, a4
#define FETCHKIT_NAMES_5 FETCHKIT_NAMES_4, a5
#define FETCHKIT_NAMES_6 FETCHKIT_NAMES_5, a6
#define FETCHKIT_NAMES_7 FETCHKIT_NAMES_6, a7

// A method of the shell that is the core's of the same name; count: of its arguments on the COM
// side, the result included.
#define FETCHKIT_METHOD(name, count)                                      \
  STDMETHODIMP name(FETCHKIT_TYPES_##count(name)) noexcept override {     \
    return fetchkit::Forward(core(), &Core::name FETCHKIT_NAMES_##count); \
  }
// A property that is read, one that is written too, and one that is an object with a shell.
#define FETCHKIT_GETTER(name)                                               \
  STDMETHODIMP get_##name(FETCHKIT_TYPES_1(get_##name)) noexcept override { \
    return fetchkit::Answer(a1, [&] { return core().name(); });             \
  }
#define FETCHKIT_PROPERTY(name)                                                 \
  FETCHKIT_GETTER(name)                                                         \
  STDMETHODIMP put_##name(FETCHKIT_TYPES_1(put_##name)) noexcept override {     \
    using Stored = decltype(core().name());                                     \
    return fetchkit::Run([&] { core().name(fetchkit::Argument<Stored>(a1)); }); \
  }
#define FETCHKIT_OBJECT(name, Shell)                                            \
  STDMETHODIMP get_##name(FETCHKIT_TYPES_1(get_##name)) noexcept override {     \
    return fetchkit::Answer(a1, [&] { return ShellOf<Shell>(core().name()); }); \
  }
