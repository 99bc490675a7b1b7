# What most files of a target include, compiled once: a build for tests compiles the core three times.
# The files include what they need all the same: clang-tidy and other builds read them without this.
option(FETCHKIT_PRECOMPILE "Compile the common headers once for each target" OFF)

set(FETCHKIT_STANDARD_HEADERS <algorithm> <chrono> <functional> <memory> <optional> <string>
    <unordered_map> <utility> <variant> <vector>)

function(fetchkit_precompile target)
  if(FETCHKIT_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${FETCHKIT_STANDARD_HEADERS} ${ARGN})
  endif()
endfunction()
