#pragma once

namespace kestrin::widgets {

/// The notice in the window and on the job sheet.
inline constexpr const char* kNoticeText = "Kestrin: job viewer and shape file exporter";

}  // namespace kestrin::widgets
