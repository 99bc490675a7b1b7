# Reads what activation without registration needs out of an IDL file: sets OUT to a manifest's text
# for its creatable classes, its type library and its interfaces. DLL: the file that serves them.
function(fetchkit_manifest_classes idl dll out)
  file(READ ${idl} text)
  string(REGEX REPLACE "//[^\n]*" "" text "${text}")
  string(REGEX REPLACE "[ \n]+" " " text "${text}")
  string(REGEX MATCH "uuid\\(([0-9A-F-]+)\\)[^]]*\\] library ([A-Za-z]+)" library "${text}")
  set(id ${CMAKE_MATCH_1})
  set(name ${CMAKE_MATCH_2})
  set(file "")
  string(REGEX MATCHALL "\\[uuid\\([0-9A-F-]+\\),[^]]*\\] coclass [A-Za-z]+" classes "${text}")
  foreach(class IN LISTS classes)
    if(class MATCHES "noncreatable")
      continue()
    endif()
    string(REGEX MATCH "uuid\\(([0-9A-F-]+)\\).* coclass ([A-Za-z]+)" class "${class}")
    string(APPEND file "    <comClass clsid=\"{${CMAKE_MATCH_1}}\" progid=\"${name}.${CMAKE_MATCH_2}\""
      " threadingModel=\"Apartment\" tlbid=\"{${id}}\"/>\n")
  endforeach()
  set(proxies "")
  string(REGEX MATCHALL "\\[object, uuid\\([0-9A-F-]+\\),[^]]*\\] interface [A-Za-z]+" interfaces
         "${text}")
  foreach(interface IN LISTS interfaces)
    string(REGEX MATCH "uuid\\(([0-9A-F-]+)\\).* interface ([A-Za-z]+)" interface "${interface}")
    string(APPEND proxies "  <comInterfaceExternalProxyStub name=\"${CMAKE_MATCH_2}\""
      " iid=\"{${CMAKE_MATCH_1}}\" tlbid=\"{${id}}\""
      " baseInterface=\"{00000000-0000-0000-C000-000000000046}\""
      " proxyStubClsid32=\"{00020424-0000-0000-C000-000000000046}\"/>\n")
  endforeach()
  set(${out} "  <file name=\"${dll}\">\n${file}    <typelib tlbid=\"{${id}}\" version=\"1.0\" helpdir=\"\"/>\n  </file>\n${proxies}"
      PARENT_SCOPE)
endfunction()
