# The libraries without Qt as others use them: find_package(Kestrin) brings Kestrin::export,
# Kestrin::preview and what those stand on. Headers keep their folders, so that they are
# included as in our own sources. examples/ has a program that does so.

set(headers ${CMAKE_INSTALL_INCLUDEDIR}/kestrin)
set(config ${CMAKE_INSTALL_LIBDIR}/cmake/Kestrin)

foreach(library base jobstore geo shapefile export preview)
  set(target kestrin_${library})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${library})
  target_compile_features(${target} INTERFACE cxx_std_20)
  # A header's functions are compiled there and here, and the linker takes either: both must
  # round alike, or sets are no more the same to the byte.
  target_compile_options(${target} INTERFACE $<INSTALL_INTERFACE:-ffp-contract=off>)
  install(TARGETS ${target} EXPORT Kestrin ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          COMPONENT dev INCLUDES DESTINATION ${headers})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${library} DESTINATION ${headers} COMPONENT dev
          FILES_MATCHING PATTERN "*.h")
endforeach()

include(CMakePackageConfigHelpers)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/KestrinConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/KestrinConfig.cmake
              ${CMAKE_BINARY_DIR}/KestrinConfigVersion.cmake
        DESTINATION ${config} COMPONENT dev)
install(EXPORT Kestrin NAMESPACE Kestrin:: FILE KestrinTargets.cmake DESTINATION ${config}
        COMPONENT dev)
