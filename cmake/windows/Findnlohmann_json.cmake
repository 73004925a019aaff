# JSON for Modern C++ is headers alone, and those lie beside the other libraries for Windows.
find_path(NLOHMANN_JSON_INCLUDE_DIR nlohmann/json.hpp REQUIRED)
if(NOT TARGET nlohmann_json::nlohmann_json)
  add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
  target_include_directories(nlohmann_json::nlohmann_json
                             INTERFACE ${NLOHMANN_JSON_INCLUDE_DIR})
endif()
set(nlohmann_json_FOUND TRUE)
