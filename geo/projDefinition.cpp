#include "geo/projDefinition.h"

#include <algorithm>
#include <charconv>

namespace kestrin::geo {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// What the parameters read so far have said; empty where nothing was.
struct Parameters {
  std::string_view projection;
  std::string_view datum;
  std::string_view zone;
};

/// Cuts the first parameter off `text`; empty when only blanks are left.
std::string_view TakeParameter(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string_view parameter = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(parameter.size());
  return parameter;
}

/// False when the parameter is unknown, empty or given twice.
bool Assign(std::string_view parameter, Parameters& parameters) {
  if (parameter == "+nodefs" || parameter == "+no_defs") return true;
  const std::size_t equals = parameter.find('=');
  if (equals == std::string_view::npos) return false;
  const std::string_view name = parameter.substr(0, equals);
  const std::string_view value = parameter.substr(equals + 1);
  std::string_view* place = name == "+proj"    ? &parameters.projection
                            : name == "+datum" ? &parameters.datum
                            : name == "+zone"  ? &parameters.zone
                                               : nullptr;
  if (place == nullptr || !place->empty() || value.empty()) return false;
  *place = value;
  return true;
}

/// The zone of a text of decimal digits, 0 when it is none or out of range.
int ParseZone(std::string_view text) {
  int zone = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, zone);
  if (error != std::errc{} || rest != end) return 0;
  return zone >= 1 && zone <= CoordinateSystem::kZones ? zone : 0;
}

}  // namespace

std::optional<CoordinateSystem> ParseDefinition(std::string_view text) {
  Parameters parameters;
  for (auto parameter = TakeParameter(text); !parameter.empty(); parameter = TakeParameter(text)) {
    if (!Assign(parameter, parameters)) return std::nullopt;
  }
  if (parameters.datum != "NAD83") return std::nullopt;
  if (parameters.projection == "latlong" && parameters.zone.empty()) return CoordinateSystem{};
  if (parameters.projection != "utm") return std::nullopt;
  const int zone = ParseZone(parameters.zone);
  if (zone == 0) return std::nullopt;
  return CoordinateSystem{zone};
}

}  // namespace kestrin::geo
