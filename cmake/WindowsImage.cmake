# How DLLs and programs for Windows are linked: nothing but the system's own DLLs beside them, the
# usual hardening, and the same bytes from the same sources.
function(fetchkit_windows_image target)
  target_link_options(${target} PRIVATE -static -static-libgcc -static-libstdc++
    -Wl,--nxcompat,--dynamicbase,--no-insert-timestamp,--disable-auto-image-base)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    target_link_options(${target} PRIVATE -Wl,--high-entropy-va)
  else()
    target_link_options(${target} PRIVATE -Wl,--enable-stdcall-fixup,--kill-at)
  endif()
  target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-s>)
endfunction()
