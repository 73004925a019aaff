# Two looks at the tree that no program needs and ./check takes:
#
# kestrin-in-one   all sources but the tests in one object: two different things of one
#                  name are an error, in the sources that are compiled together or, between
#                  those with Qt and those without, in the link. packaging/check-tidy reads
#                  the same two compilations.
# kestrin-headers  every header alone. A source begins with its own header, so that the
#                  build proves those; each other is compiled by itself here.

set(without_qt base jobstore geo shapefile export preview tools app/flow app/platform)
if(KESTRIN_GDAL)
  list(APPEND without_qt gdal)
endif()
set(with_qt app/window app/widgets app/print app/session)

# kestrin_files(variable pattern folder...): what lies below, for this system.
function(kestrin_files variable pattern)
  list(TRANSFORM ARGN APPEND /${pattern} OUTPUT_VARIABLE patterns)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${patterns})
  list(FILTER files EXCLUDE REGEX "_windows\\.cpp$")
  set(${variable} ${files} PARENT_SCOPE)
endfunction()

# kestrin_together(name source...): the sources as one compilation, for the link to come.
function(kestrin_together name)
  add_library(${name} OBJECT EXCLUDE_FROM_ALL ${ARGN})
  target_compile_options(${name} PRIVATE -O0 -g0 -flto
                                         # A source may keep its own types in its own class.
                                         -Wno-subobject-linkage)
  target_compile_definitions(${name} PRIVATE KESTRIN_VERSION="" KESTRIN_VERSION_MAJOR=0
                                             KESTRIN_VERSION_MINOR=0 KESTRIN_VERSION_REVISION=0)
  set_target_properties(
    ${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0
                       # Each main gets a name of its own.
                       UNITY_BUILD_UNIQUE_ID KESTRIN_UNIT
                       UNITY_BUILD_CODE_BEFORE_INCLUDE "#define main KESTRIN_UNIT")
endfunction()

find_package(GTest REQUIRED)
find_package(Qt6 REQUIRED COMPONENTS Test)
find_package(benchmark REQUIRED)
set(libraries kestrin_app kestrin_preview kestrin_exporter kestrin_sample_jobs
              $<TARGET_NAME_IF_EXISTS:GDAL::GDAL>)

kestrin_files(sources *.cpp ${without_qt} tests/support)
kestrin_together(kestrin-together ${sources})
target_link_libraries(kestrin-together PRIVATE ${libraries})

kestrin_files(sources *.cpp ${with_qt})
kestrin_together(kestrin-together-qt app/main.cpp ${sources})
target_link_libraries(kestrin-together-qt PRIVATE ${libraries})

add_executable(kestrin-in-one EXCLUDE_FROM_ALL $<TARGET_OBJECTS:kestrin-together>
                                               $<TARGET_OBJECTS:kestrin-together-qt>)
set_target_properties(kestrin-in-one PROPERTIES LINKER_LANGUAGE CXX)
target_link_options(kestrin-in-one PRIVATE -r -O0 -flto -Wodr -Werror)

kestrin_files(headers *.h ${without_qt} ${with_qt} tests bench)
kestrin_files(sources *.cpp ${without_qt} ${with_qt})
foreach(source ${sources})
  file(STRINGS ${source} first REGEX "^#include" LIMIT_COUNT 1)
  if(first MATCHES "\"(.*)\"")
    list(REMOVE_ITEM headers ${CMAKE_MATCH_1})
  endif()
endforeach()
set(alone)
foreach(header ${headers})
  set(source ${CMAKE_BINARY_DIR}/headers/${header}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n")
  list(APPEND alone ${source})
endforeach()
add_library(kestrin-headers OBJECT EXCLUDE_FROM_ALL ${alone})
target_compile_options(kestrin-headers PRIVATE -O0 -g0)
target_compile_definitions(
  kestrin-headers PRIVATE $<TARGET_PROPERTY:tools_test,COMPILE_DEFINITIONS>)
target_link_libraries(kestrin-headers PRIVATE ${libraries} GTest::gmock Qt6::Test
                                              benchmark::benchmark)
