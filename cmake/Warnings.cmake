# Warnings, sanitizers and their strictness, for every target of this project alike.
function(fetchkit_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(FETCHKIT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(FETCHKIT_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=address,undefined
                           -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()
