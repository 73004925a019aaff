# CLI11 is headers alone, and those lie beside the other libraries for Windows.
find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp REQUIRED)
if(NOT TARGET CLI11::CLI11)
  add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
  target_include_directories(CLI11::CLI11 INTERFACE ${CLI11_INCLUDE_DIR})
endif()
set(CLI11_FOUND TRUE)
