# What the libraries stand on is found first, as Kestrin's own build finds it.
include(CMakeFindDependencyMacro)
find_dependency(SQLite3)
find_dependency(PROJ CONFIG)
find_dependency(GEOS 3.11 CONFIG)
include(${CMAKE_CURRENT_LIST_DIR}/KestrinTargets.cmake)
