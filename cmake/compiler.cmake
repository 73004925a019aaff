# How every target is compiled, and how a folder becomes a library: all sources of a
# folder and of the rooms named with it belong to it but those named after another system
# (<name>_windows.cpp beside <name>_posix.cpp), and headers are included from the
# repository's root.

add_library(kestrin_compile INTERFACE)
target_include_directories(kestrin_compile INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(
  kestrin_compile
  INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Wold-style-cast
            -Woverloaded-virtual -Wdouble-promotion -Wformat=2
            # Clang 14 takes the 0 in a defaulted <=> for a pointer.
            $<$<CXX_COMPILER_ID:GNU>:-Wzero-as-null-pointer-constant>
            # A source that is compiled with others may keep its own types in its own class.
            $<$<BOOL:${CMAKE_UNITY_BUILD}>:$<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>>
            # Results are compared to the byte between compilers and machines.
            -ffp-contract=off)
if(WIN32)
  # The system's header leaves out what is seldom needed, and the names min and max; the
  # C library's has the calls that are safe in threads under the same names as elsewhere.
  target_compile_definitions(kestrin_compile INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX UNICODE
                                                       _POSIX_THREAD_SAFE_FUNCTIONS)
endif()
if(KESTRIN_WERROR)
  target_compile_options(kestrin_compile INTERFACE -Werror)
endif()
if(NOT KESTRIN_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  # A slip that is left stops the program instead of writing where it should not.
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  target_compile_definitions(kestrin_compile INTERFACE _FORTIFY_SOURCE=2)
  target_compile_options(kestrin_compile INTERFACE -fstack-protector-strong)
  # MinGW has what stands behind it in a library.
  target_link_options(kestrin_compile INTERFACE -fstack-protector-strong)
  if(NOT WIN32)
    include(CheckCXXCompilerFlag)
    check_cxx_compiler_flag(-fcf-protection KESTRIN_HAS_CF_PROTECTION)
    target_compile_options(kestrin_compile
                           INTERFACE $<$<BOOL:${KESTRIN_HAS_CF_PROTECTION}>:-fcf-protection>)
    target_link_options(kestrin_compile INTERFACE -Wl,-z,relro,-z,now)
  endif()
endif()
if(KESTRIN_SANITIZE)
  target_compile_options(kestrin_compile INTERFACE -fsanitize=${KESTRIN_SANITIZE}
                                                   -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(kestrin_compile INTERFACE -fsanitize=${KESTRIN_SANITIZE})
endif()

# kestrin_sources(variable [room...]): the sources of the current folder, and of rooms in
# it, for this system.
function(kestrin_sources variable)
  set(patterns *.cpp *.h)
  foreach(room ${ARGN})
    list(APPEND patterns ${room}/*.cpp ${room}/*.h)
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  if(WIN32)
    set(other_system posix|linux)
  else()
    set(other_system windows)
  endif()
  list(FILTER sources EXCLUDE REGEX "_(${other_system})(_test)?\\.cpp$")
  # Where sources are compiled together, the header of Windows would turn names of others into
  # its own.
  set(alone ${sources})
  list(FILTER alone INCLUDE REGEX "_windows(_test)?\\.cpp$")
  set_source_files_properties(${alone} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# kestrin_library(name [ROOMS room...] [NEEDS library...]): the static library of the
# current folder and its rooms.
function(kestrin_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ROOMS;NEEDS")
  kestrin_sources(sources ${arg_ROOMS})
  add_library(${name} STATIC ${sources})
  # How we compile is no matter of whoever uses the installed library.
  target_link_libraries(${name} PUBLIC $<BUILD_INTERFACE:kestrin_compile> ${arg_NEEDS})
endfunction()

# kestrin_resources(program title [icon]): what Windows reads from a program before it
# runs: version, code page, paths, screen scaling. Nothing elsewhere.
function(kestrin_resources program title)
  if(WIN32)
    include(${PROJECT_SOURCE_DIR}/cmake/windows/resources.cmake)
    kestrin_windows_resources(${program} ${title} ${ARGN})
  endif()
endfunction()
