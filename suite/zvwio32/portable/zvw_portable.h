// The arithmetic and text rules of ZVWIO32 that need no window: numbers to
// and from text, units, rounding, rotated sizes, the resize that the size
// tags ask for, paths, colours as text, and "~" lists.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zvw {

// Bounded copy: at most size - 1 characters and a terminator.
void CopyText(char* dst, std::size_t size, const char* src);

// Numbers from text. The lenient forms read the leading number and give 0
// when there is none; they never read hexadecimal, "inf" or "nan".
long ParseLong(const char* text);
double ParseDouble(const char* text);
// The strict forms accept a text that is one number and nothing else
// (blanks around it allowed); false otherwise, and for the empty text.
bool ParseLongStrict(const char* text, long* value);
bool ParseDoubleStrict(const char* text, double* value);

// Decimal text of a number with at most `decimals` places, trailing zeros
// dropped ("2.5", "300", "-0.25"); very large numbers in exponent form.
std::string FormatDouble(double value, int decimals);

// "1234567" -> "1,234,567"; a sign and a fraction are kept in place.
std::string WithCommas(const std::string& number);

// The leading number of text (sign, digits, one decimal point), at most
// `count` characters of it.
std::string LeadingNumber(const char* text, std::size_t count);

// The text helpers that write into a caller's buffer of size bytes: what
// does not fit is cut, the result always ends in a zero, and a size of 0
// writes nothing.
//
// At most count characters of text from start on; the empty text for a
// start outside text or a count of 0 or less.
void CopySubstring(char* out, std::size_t size, const char* text, int start, int count);
// LeadingNumber of text into out.
void CopyLeadingNumber(char* out, std::size_t size, const char* text, std::size_t count);
// WithCommas on the text that text[size] holds, in place; an unterminated
// text counts as full.
void InsertCommas(char* text, std::size_t size);
// The decimal text of value with its commas ("-2,147,483,648").
void FormatWithCommas(long value, char* out, std::size_t size);
// The bytes that a number of length characters takes with its commas and
// the zero: one comma for each full three characters after the first, so
// "1234567" (7) needs 10.
std::size_t CommasRoom(std::size_t length);

double Divide(double numerator, double denominator);  // 0 for a zero denominator
double RoundToStep(double value, double step);        // nearest multiple of step

// Units: "IN", "CM", "PICA", "PIX", "MULT", case ignored; an unknown or null
// unit counts as "IN". dpi serves "PIX"; reference, a length in inches,
// is the size of one multiple for "MULT".
double Convert(const char* from, const char* to, double value, double dpi, double reference);
bool IsUnit(const char* units, const char* name);

// The bounding size of a width x height rectangle turned by angle degrees.
void RotatedSize(double angle, double width, double height, double* outWidth, double* outHeight);

// The scaling modes of the size tags, by the text the tag holds.
enum ScalingMode {
    kFitInFrame = 0,
    kFitInWidth = 1,
    kFitInHeight = 2,
    kDistortToFrame = 3,
    kDistortAspect = 4,
    kMaintainAspect = 5,
    kFitInDisplay = 6,
    kFitInDisplayWidth = 7,
};
// The mode that a scaling text names (case ignored). An absent or unknown
// text gives "Distort to Frame" when distort is set, else "Fit in Frame",
// the entry a page shows first.
ScalingMode ScalingModeOf(const char* text, bool distort);

// What the size tags of one destination ask of an image.
struct ResizeRequest {
    double width = 0, height = 0;    // in units; 0 = not set
    const char* units = nullptr;     // null counts as "IN"
    double horzDpi = 0, vertDpi = 0; // dots per inch; 0 counts as 300
    double aspect = 0;               // distortion factor; 0 counts as 1
    ScalingMode mode = kFitInFrame;
};
// 1 and the new size in pixels (each 1 to 32767), or 0 when the request
// asks for no size.
int ComputeResize(const ResizeRequest& request, long imageWidth, long imageHeight, long* newWidth,
                  long* newHeight);

// Path parts; each out (may be null) gets at most size bytes. dir keeps its
// trailing separator; ext comes without its dot.
void SplitPath(const char* path, char* dir, char* name, char* ext, std::size_t size);

// Colours as six hexadecimal digits RRGGBB, red first.
std::uint32_t ParseHexRgb(const char* text);  // 0xRRGGBB; what isn't hex ends the number
void FormatHexRgb(unsigned red, unsigned green, unsigned blue, char out[7]);

// Adds the items of one string table entry ("~" between items) to items;
// true when the entry ends in "~", so that the list goes on in the next.
bool AppendListEntry(const char* entry, std::vector<std::string>& items);

}  // namespace zvw
