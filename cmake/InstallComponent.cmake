# `cmake --install` of a Windows build: the DLLs with their type libraries, and what C++ hosts need
# (headers, identifiers, an import library for activation without the registry). tools/package/package.py
# packs it. The target fetchkit_package builds all of it and nothing else.
set(PACKAGE_BUILD ${PROJECT_BINARY_DIR}/package)
set(COMPONENT_DIR ${PROJECT_SOURCE_DIR}/component)
set(WIDL ${MINGW_WIDL} -I${COMPONENT_DIR} -I${COMPONENT_DIR}/idl)
set(ARCHITECTURE i386:x86-64)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  list(APPEND WIDL --win32)
  set(ARCHITECTURE i386)
endif()
set(HEADERS FetchKit FetchKitHost)
set(PACKAGE_DLLS fetchkit_component)
set(HOST_IDL ${PROJECT_SOURCE_DIR}/hosts/windows/FetchKitHostLibrary.idl)
if(TARGET fetchkit_host)
  list(APPEND HEADERS FetchKitHostLibrary)
  list(APPEND PACKAGE_DLLS fetchkit_host)
endif()

# In the folder of its source, so that no path of the build machine stands in what it writes.
set(own ${PACKAGE_BUILD}/typelib/stdole2.tlb)
set(interfaces ${PACKAGE_BUILD}/interfaces/stdole2.tlb)
set(made ${PACKAGE_BUILD}/FetchKit.tlb ${PACKAGE_BUILD}/FetchKitHostInterfaces.tlb)
set(commands
  COMMAND ${CMAKE_COMMAND} -E make_directory ${PACKAGE_BUILD}/typelib ${PACKAGE_BUILD}/interfaces ${PACKAGE_BUILD}/include
  COMMAND ${WIDL} -t -o ${own} idl/stdole2.idl
  COMMAND ${WIDL} -t -o ${interfaces} idl/stdole2-interfaces.idl
  COMMAND ${WIDL} -t -L${PACKAGE_BUILD}/typelib -o ${PACKAGE_BUILD}/FetchKit.tlb FetchKit.idl
  COMMAND ${WIDL} -t -L${PACKAGE_BUILD}/interfaces -o ${PACKAGE_BUILD}/FetchKitHostInterfaces.tlb FetchKitHostInterfaces.idl)
foreach(name IN LISTS HEADERS)
  set(idl ${name}.idl)
  if(name STREQUAL FetchKitHostLibrary)
    set(idl ../hosts/windows/${idl})
    list(APPEND made ${PACKAGE_BUILD}/FetchKitHost.tlb)
    list(APPEND commands COMMAND ${WIDL} -t -L${PACKAGE_BUILD}/typelib -o ${PACKAGE_BUILD}/FetchKitHost.tlb ${idl})
  endif()
  list(APPEND made ${PACKAGE_BUILD}/include/${name}.h ${PACKAGE_BUILD}/include/${name}_i.c)
  list(APPEND commands COMMAND ${WIDL} -h -o ${PACKAGE_BUILD}/include/${name}.h ${idl}
                       COMMAND ${WIDL} -u -o ${PACKAGE_BUILD}/include/${name}_i.c ${idl})
endforeach()
set(sources ${COMPONENT_DIR}/FetchKit.idl ${COMPONENT_DIR}/FetchKitHost.idl
            ${COMPONENT_DIR}/FetchKitHostInterfaces.idl)
if(TARGET fetchkit_host)
  list(APPEND sources ${HOST_IDL})
endif()
add_custom_command(OUTPUT ${made} ${commands} DEPENDS ${sources} ${COMPONENT_DIR}/idl/oaidl.idl
                   ${COMPONENT_DIR}/idl/stdole2.idl ${COMPONENT_DIR}/idl/stdole2-interfaces.idl
                   WORKING_DIRECTORY ${COMPONENT_DIR} VERBATIM)

# The DLL keeps its entry points out of its own import library, so that nobody links them by
# accident; who activates without the registry gets one that has them, in the form that every linker
# for Windows reads. Callers of 32 bits name them with the size of their arguments.
find_program(LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
mark_as_advanced(LLVM_DLLTOOL)
if(LLVM_DLLTOOL)
  set(bytes_DllGetClassObject 12)
  set(bytes_DllInstall 8)
  file(STRINGS ${COMPONENT_DIR}/FetchKit.def entries REGEX " PRIVATE$")
  set(text "LIBRARY FetchKit.dll\nEXPORTS\n")
  foreach(entry IN LISTS entries)
    string(REGEX REPLACE "^ *([A-Za-z]+).*" "\\1" entry "${entry}")
    if(ARCHITECTURE STREQUAL i386)
      if(NOT bytes_${entry})
        set(bytes_${entry} 0)
      endif()
      string(APPEND entry @${bytes_${entry}})
    endif()
    string(APPEND text "  ${entry}\n")
  endforeach()
  file(CONFIGURE OUTPUT ${PACKAGE_BUILD}/FetchKit.def CONTENT "${text}")
  add_custom_command(OUTPUT ${PACKAGE_BUILD}/FetchKit.lib
    COMMAND ${LLVM_DLLTOOL} -m ${ARCHITECTURE} -k -d ${PACKAGE_BUILD}/FetchKit.def
            -l ${PACKAGE_BUILD}/FetchKit.lib
    DEPENDS ${PACKAGE_BUILD}/FetchKit.def VERBATIM)
  list(APPEND made ${PACKAGE_BUILD}/FetchKit.lib)
  install(FILES ${PACKAGE_BUILD}/FetchKit.lib DESTINATION lib)
else()
  message(STATUS "No llvm-dlltool: cmake --install leaves out lib/FetchKit.lib")
endif()

# fmt's own checks name their header with its path, which is in the build folder.
foreach(target fetchkit_host fetchkit_demo fetchkit_windows_demo)
  if(TARGET ${target})
    target_compile_options(${target} PRIVATE -ffile-prefix-map=${PROJECT_BINARY_DIR}/=)
  endif()
endforeach()

add_custom_target(fetchkit_sdk ALL DEPENDS ${made})
add_custom_target(fetchkit_package DEPENDS fetchkit_sdk)
foreach(dll IN LISTS PACKAGE_DLLS)
  add_dependencies(fetchkit_package ${dll})
  install(FILES $<TARGET_FILE:${dll}> DESTINATION .)
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/FetchKit.manifest DESTINATION .)
foreach(file IN LISTS made)
  if(file MATCHES "\\.tlb$")
    install(FILES ${file} DESTINATION .)
  elseif(file MATCHES "/include/")
    install(FILES ${file} DESTINATION include)
  endif()
endforeach()
