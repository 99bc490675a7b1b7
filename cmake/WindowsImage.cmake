# How DLLs and programs for Windows are linked: nothing but the system's own DLLs beside them, the
# usual hardening, and the same bytes from the same sources. A DLL leaves its symbols in a file
# beside it, with the extension "debug", which stays here when the DLL is given away.
function(fetchkit_windows_image target)
  target_link_options(${target} PRIVATE -static -static-libgcc -static-libstdc++
    -Wl,--nxcompat,--dynamicbase,--no-insert-timestamp,--disable-auto-image-base)
  get_target_property(type ${target} TYPE)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    target_link_options(${target} PRIVATE -Wl,--high-entropy-va)
  else()
    target_link_options(${target} PRIVATE -Wl,--enable-stdcall-fixup,--kill-at)
    # This compiler's exceptions are not the system's: a DLL has no handler that an attacker could
    # put another one in the place of. Programs have one, at their entry.
    if(type STREQUAL SHARED_LIBRARY)
      target_link_options(${target} PRIVATE -Wl,--no-seh)
    endif()
  endif()
  if(NOT type STREQUAL SHARED_LIBRARY)
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-s>)
    return()
  endif()
  set(debug $<TARGET_FILE:${target}>.debug)
  # With the image's own date, which is none: otherwise no two builds would be the same bytes.
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug $<TARGET_FILE:${target}> ${debug}
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all --add-gnu-debuglink=${debug} $<TARGET_FILE:${target}>
    VERBATIM)
endfunction()
