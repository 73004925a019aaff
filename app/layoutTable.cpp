#include "app/layoutTable.h"

namespace kestrin {

namespace {

using enum ControlKind;

constexpr FontSpec kSans8{Face::kSansSerif, kSmall, true};
constexpr FontSpec kSans10{Face::kSansSerif, kLarge, true};
constexpr FontSpec kMicrosoft10{Face::kMicrosoftSansSerif, kLarge, true};
constexpr FontSpec kArial10{Face::kArial, kLarge, true};
constexpr FontSpec kTimes8{Face::kTimes, kSmall, false};

constexpr bool kHidden = false;

// The bracket in Frame2: a stub from the middle of every kind button to a common
// upright, and one from there to the middle of CREATE ALL.
constexpr int kStubLeft = 1575;
constexpr int kUpright = 1920;
constexpr int kCreateAllLeft = 2280;
constexpr int kThin = kTwipsPerPixel;

constexpr ControlSpec kTable[] = {
    {"Picture2", "", kBox, {0, 0, 11880, 8100}},
    {"VScroll1", "", kVScroll, {11640, 0, 255, 855}, "", "Scroll up and down"},
    {"HScroll1", "", kHScroll, {0, 7860, 855, 255}, "", "Scroll left and right"},
    {"Frame3", "", kBox, {11640, 8280, 255, 255}},

    {"Frame1", "Picture2", kFrame, {60, 0, 2010, 1140}, "", "Job"},
    {"Label3", "Frame1", kCentred, {270, 135, 1455, 375}, "CURRENT JOB", "Heading", kArial10,
     TextColour::kDarkRed},
    {"Command3", "Frame1", kButton, {270, 435, 1455, 615}, "SELECT", "Select a job", kSans10},
    {"Label5", "Picture2", kBordered, {2070, 90, 9750, 330}, "", "Current job", kMicrosoft10},

    {"Frame4", "Picture2", kFrame, {60, 1320, 4125, 2175}, "PREVIEW JOB", "Preview job", kSans8},
    {"Option1_0", "Frame4", kOption, {480, 360, 1215, 255}, "WIRE", "Preview the driven path",
     kSans8},
    {"Option1_1", "Frame4", kOption, {480, 840, 1215, 255}, "BOOM", "Preview the boom sections",
     kSans8},
    {"Option1_2", "Frame4", kOption, {480, 1320, 1215, 255}, "POLY", "Preview the coverage",
     kSans8},
    {"Option1_3", "Frame4", kOption, {480, 1800, 1215, 255}, "POINT", "Preview the points", kSans8},
    {"Command4", "Frame4", kButton, {2280, 840, 1575, 615}, "PRINT", "Print the job sheet",
     kSans10},
    {"Label8", "Frame4", kCentred, {2280, 1695, 1575, 255}, "Loading Preview", "Preview progress",
     kSans8, TextColour::kPlain, kHidden},
    {"Shape1", "Frame4", kBar, {2280, 1920, 135, 150}, "", "", kSans8, TextColour::kPlain, kHidden},
    {"Label7", "Frame4", kTrack, {2280, 1920, 1575, 150}, "", "", kSans8, TextColour::kPlain,
     kHidden},

    {"Frame2", "Picture2", kFrame, {60, 3720, 4125, 3735}, "EXPORT SHAPE FILES",
     "Export shape files", kSans8},
    {"Line1", "Frame2", kLine, {kUpright, 600, kThin, 2535}},
    {"Line2_0", "Frame2", kLine, {kStubLeft, 600, kUpright - kStubLeft, kThin}},
    {"Line2_1", "Frame2", kLine, {kStubLeft, 1440, kUpright - kStubLeft, kThin}},
    {"Line2_2", "Frame2", kLine, {kStubLeft, 2280, kUpright - kStubLeft, kThin}},
    {"Line2_3", "Frame2", kLine, {kStubLeft, 3120, kUpright - kStubLeft, kThin}},
    {"Line2_4", "Frame2", kLine, {kUpright, 1860, kCreateAllLeft - kUpright, kThin}},
    {"Command1_0", "Frame2", kButton, {120, 360, 1455, 495}, "WIRE", "Export wire shape file",
     kSans8},
    {"Label1_0", "Frame2", kCentred, {120, 855, 1455, 255}, "File Exists", "Wire shape file",
     kSans8, TextColour::kGrey},
    {"Command1_1", "Frame2", kButton, {120, 1200, 1455, 495}, "BOOM", "Export boom shape file",
     kSans8},
    {"Label1_1", "Frame2", kCentred, {120, 1695, 1455, 255}, "File Exists", "Boom shape file",
     kSans8, TextColour::kGrey},
    {"Command1_2", "Frame2", kButton, {120, 2040, 1455, 495}, "POLY", "Export polygon shape file",
     kSans8},
    {"Label1_2", "Frame2", kCentred, {120, 2535, 1455, 255}, "File Exists", "Polygon shape file",
     kSans8, TextColour::kGrey},
    {"Command1_3", "Frame2", kButton, {120, 2880, 1455, 495}, "POINT", "Export point shape file",
     kSans8},
    {"Label1_3", "Frame2", kCentred, {120, 3375, 1455, 255}, "File Exists", "Point shape file",
     kSans8, TextColour::kGrey},
    {"Command2", "Frame2", kButton, {2280, 1560, 1575, 615}, "CREATE ALL",
     "Export all four shape files", kSans10},
    {"Label10", "Frame2", kCentred, {2280, 2535, 1575, 255}, "Creating Shape File",
     "Export progress", kSans8, TextColour::kPlain, kHidden},
    {"Shape2", "Frame2", kBar, {2280, 2760, 135, 150}, "", "", kSans8, TextColour::kPlain, kHidden},
    {"Label9", "Frame2", kTrack, {2280, 2760, 1575, 150}, "", "", kSans8, TextColour::kPlain,
     kHidden},

    {"Picture1", "Picture2", kPicture, {4260, 480, 7560, 7560}, "", "Preview of the job"},
    {"Label6", "Picture2", kTrack, {4260, 480, 7560, 7560}},

    {"Image1", "Picture2", kImage, {150, 7530, 510, 510}, "", "Kestrin"},
    {"Label4", "Picture2", kCentred, {720, 7560, 2895, 255}, "Kestrin Version  1.0.1", "Version",
     kTimes8, TextColour::kDarkGrey},
    {"Label2", "Picture2", kCentred, {720, 7800, 2895, 255},
     "Kestrin: job viewer and shape file exporter", "Notice", kTimes8, TextColour::kDarkGrey},
};

}  // namespace

std::span<const ControlSpec> LayoutTable() { return kTable; }

}  // namespace kestrin
