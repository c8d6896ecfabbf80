# What a shared library exports, held against a list in the repository.
#
#   cmake -D LIBRARY=<file> -D NM=<nm> -D LIST=<file> -D HEADERS=<folder> -P exported_symbols.cmake
#   with -D UPDATE=ON the list is written anew instead; read the difference before committing it.
#
# The list holds functions, tables of virtual operations and type information under their C++ names,
# without what the compiler makes out of templates of the standard library.

cmake_minimum_required(VERSION 3.25)

execute_process(
  COMMAND "${NM}" -D -C --defined-only "${LIBRARY}"
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)

# Names hold semicolons and brackets nowhere, but [abi:cxx11] does occur in them.
string(REPLACE "[" "<<" output "${output}")
string(REPLACE "]" ">>" output "${output}")
string(REPLACE "\n" ";" lines "${output}")
set(symbols)
foreach(line IN LISTS lines)
  # T: functions. D, R, V: tables and type information; V also where several libraries may hold them.
  if(line MATCHES "^[0-9a-f]+ T (.*)$")
    list(APPEND symbols "${CMAKE_MATCH_1}")
  elseif(line MATCHES "^[0-9a-f]+ [DRVB] (.*)$")
    set(name "${CMAKE_MATCH_1}")
    # Names of types and guards of inline variables belong to what stands beside them; the address
    # sanitizer adds marks of its own.
    if(NOT name MATCHES "^(typeinfo name for |guard variable for |__odr_asan)")
      list(APPEND symbols "${name}")
    endif()
  endif()
endforeach()
list(FILTER symbols EXCLUDE REGEX "^(_init$|_fini$|std::|__gnu_cxx::)")
# Whether the compiler leaves something of a class template behind depends on its optimiser.
list(FILTER symbols EXCLUDE REGEX "^(vtable|typeinfo|VTT) for (std::|__gnu_cxx::|[A-Za-z0-9_]+[<])")
list(REMOVE_DUPLICATES symbols)
list(SORT symbols)

# Nothing but members of the exported classes may leave the library.
file(GLOB_RECURSE headers "${HEADERS}/*.h")
set(classes)
foreach(header IN LISTS headers)
  file(STRINGS "${header}" declarations REGEX "KTRCL_[A-Z]+_EXPORT ")
  foreach(declaration IN LISTS declarations)
    if(declaration MATCHES "^ *(class|struct) KTRCL_[A-Z]+_EXPORT ([A-Za-z0-9_]+)")
      list(APPEND classes "${CMAKE_MATCH_2}")
    elseif(declaration MATCHES "KTRCL_[A-Z]+_EXPORT .*[ *&]([A-Za-z0-9_]+)\\(")
      list(APPEND classes "${CMAKE_MATCH_1}")
    endif()
  endforeach()
endforeach()
list(REMOVE_DUPLICATES classes)
set(strangers)
foreach(symbol IN LISTS symbols)
  string(REGEX REPLACE "^(vtable for |typeinfo for |VTT for |(non-virtual|virtual) thunk to )" "" name
                       "${symbol}")
  string(REGEX MATCH "^[A-Za-z0-9_]+" owner "${name}")
  if(NOT owner IN_LIST classes)
    list(APPEND strangers "${symbol}")
  endif()
endforeach()

list(JOIN symbols "\n" text)
string(REPLACE "<<" "[" text "${text}\n")
string(REPLACE ">>" "]" text "${text}")

set(trouble)
if(strangers)
  list(JOIN strangers "\n  " names)
  string(APPEND trouble "Exported, but not part of the public headers:\n  ${names}\n")
endif()
if(UPDATE)
  file(WRITE "${LIST}" "${text}")
elseif(EXISTS "${LIST}")
  file(READ "${LIST}" expected)
  string(REGEX REPLACE "[[]" "<<" expected "${expected}")
  string(REGEX REPLACE "[]]" ">>" expected "${expected}")
  string(REGEX REPLACE "\n+$" "" expected "${expected}")
  string(REPLACE "\n" ";" expected "${expected}")
  set(missing ${expected})
  list(REMOVE_ITEM missing ${symbols})
  set(added ${symbols})
  list(REMOVE_ITEM added ${expected})
  if(missing)
    list(JOIN missing "\n  " names)
    string(APPEND trouble "No longer exported:\n  ${names}\n")
  endif()
  if(added)
    list(JOIN added "\n  " names)
    string(APPEND trouble "Exported, but not in ${LIST}:\n  ${names}\n")
  endif()
else()
  string(APPEND trouble "${LIST} is missing\n")
endif()
if(trouble)
  message(FATAL_ERROR "${trouble}")
endif()
