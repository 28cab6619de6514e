// The size model of the output pages without the platform: the record that
// a page keeps while it lives, the rules of the scaling modes, the link of
// width and height, the changes of unit and the bounds of a retrieval. The
// page code on the Windows side moves text between these and the controls.
#pragma once

#include <cstddef>

namespace zv {

// One record per live output page. The page keeps unrounded numbers here;
// only the text it writes into the edits is rounded.
struct OutputSizeState {
    int updating;         // 1 while a routine writes an edit itself
    double roundStep;     // 1.0 for pixels, 0.01 for every other unit
    double horzRes;       // dots per inch
    double vertRes;
    double width;         // in lastUnits, unrounded
    double height;
    double aspect;        // width = aspect x height
    double pixelWidth;    // the size in pixels, as last known outside "MULT"
    double pixelHeight;
    char keyPrefix[7];    // S + K: three letters each
    char units[64];       // the unit chosen now, as its tag value
    char lastUnits[64];   // the unit that width and height are in
};

// The resolution a page shows for a pixel pitch in tenths of a micron:
// 254000 / pitch rounded up, 300 for an unknown pitch. 301 becomes 300, so
// that the pitch of a 300 dpi image (846, which divides up to 301) reads
// as what it was made at.
int PitchToResolution(long pitch);

// A resolution as the record takes it: 0 means "not set" and counts as 300.
double ResolutionOrDefault(double dpi);

constexpr double kDefaultResolution = 300.0;
constexpr double kMaxSizeValue = 999999.99;

// The step that text of a size is rounded to in a unit.
double RoundStepFor(const char* units);

// True for the tag value "MULT" (case ignored).
bool IsMultiples(const char* units);

// ------------------------------------------------------------ scaling modes

constexpr int kScalingModeCount = 8;  // the list of the in-hand image
constexpr int kScalingModeCountFile = 6;  // the list of every other operation

// What a scaling mode enables and writes.
struct ScalingRule {
    bool widthEnabled;    // 1507, 1508
    bool heightEnabled;   // 1509, 1510
    bool aspectEnabled;   // 1511, 1512
    bool aspectShown;     // the aspect edit shows the tag; otherwise it is emptied
    bool distort;         // "DISTORT" is "ON"
    bool linked;          // typing one side fills the other
};

// The rule of a mode by its index in the list. An index outside the list
// (no selection) gets the rule of the first mode.
const ScalingRule& ScalingRuleOf(int index);

// Texts of the modes, in list order, as the tag holds them.
const char* ScalingModeText(int index);

// ---------------------------------------------------------------- the link

// The other side of a size after one side was typed. In "MULT" both sides
// are the same number; otherwise width = aspect x height.
double LinkedHeight(double width, double aspect, bool multiples);
double LinkedWidth(double height, double aspect, bool multiples);

// The ratio of an image's physical width to its physical height, from its
// size in pixels and its resolutions; 0 when any of them is 0.
double PhysicalAspect(double width, double height, double horzRes, double vertRes);

// A change of unit of the record (the steps after the selection was read):
// leaving "MULT" goes back to the pixel size, then both sides are converted
// into the new unit and lastUnits follows. Gives false when the unit is the
// same as before, in which case nothing changes.
bool ChangeRecordUnits(OutputSizeState& state, const char* newUnits);

// The pixel size of a side in its unit at a resolution.
double ToPixels(double value, const char* units, double dpi);

// ----------------------------------------------------------- the retrieval

struct SizeBounds {
    double min;
    double max;
};

// The range a width or height edit accepts in units at dpi. In "MULT" it
// is 0 to 100. When the image in hand is changed at once (changeInHand),
// the least size is one pixel's worth, since the engine can't make less.
SizeBounds OutputSizeBounds(const char* units, double dpi, bool changeInHand);

}  // namespace zv
