#include "zvw_portable.h"

#include <cctype>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zvw {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

char Lower(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameNoCase(const char* a, const char* b)
{
    for (; *a && *b; ++a, ++b)
        if (Lower(*a) != Lower(*b))
            return false;
    return *a == *b;
}

// The length of the decimal number at text (sign, digits, point, digits,
// exponent), or 0 when none stands there. Hexadecimal, "inf" and "nan",
// which the C library would read, are not numbers of ours.
std::size_t NumberSpan(const char* text, bool fraction)
{
    std::size_t i = 0;
    if (text[i] == '-' || text[i] == '+')
        ++i;
    std::size_t digits = 0;
    while (IsDigit(text[i])) {
        ++i;
        ++digits;
    }
    if (fraction && text[i] == '.') {
        ++i;
        while (IsDigit(text[i])) {
            ++i;
            ++digits;
        }
    }
    if (digits == 0)
        return 0;
    if (fraction && (text[i] == 'e' || text[i] == 'E')) {
        std::size_t j = i + 1;
        if (text[j] == '-' || text[j] == '+')
            ++j;
        if (IsDigit(text[j])) {
            while (IsDigit(text[j]))
                ++j;
            i = j;
        }
    }
    return i;
}

long ToLong(const char* text, std::size_t span)
{
    std::string s(text, span);
    const long long v = std::strtoll(s.c_str(), nullptr, 10);
    if (v > LONG_MAX)
        return LONG_MAX;
    if (v < LONG_MIN)
        return LONG_MIN;
    return static_cast<long>(v);
}

double ToDouble(const char* text, std::size_t span)
{
    std::string s(text, span);
    const double v = std::strtod(s.c_str(), nullptr);
    return std::isfinite(v) ? v : 0.0;
}

const char* SkipBlanks(const char* text)
{
    while (IsBlank(*text))
        ++text;
    return text;
}

}  // namespace

void CopyText(char* dst, std::size_t size, const char* src)
{
    if (!dst || size == 0)
        return;
    std::size_t n = src ? strnlen(src, size - 1) : 0;
    if (n)
        std::memcpy(dst, src, n);
    dst[n] = 0;
}

long ParseLong(const char* text)
{
    if (!text)
        return 0;
    text = SkipBlanks(text);
    const std::size_t span = NumberSpan(text, false);
    return span ? ToLong(text, span) : 0;
}

double ParseDouble(const char* text)
{
    if (!text)
        return 0.0;
    text = SkipBlanks(text);
    const std::size_t span = NumberSpan(text, true);
    return span ? ToDouble(text, span) : 0.0;
}

bool ParseLongStrict(const char* text, long* value)
{
    if (!text)
        return false;
    text = SkipBlanks(text);
    const std::size_t span = NumberSpan(text, false);
    if (span == 0 || *SkipBlanks(text + span) != 0)
        return false;
    if (value)
        *value = ToLong(text, span);
    return true;
}

bool ParseDoubleStrict(const char* text, double* value)
{
    if (!text)
        return false;
    text = SkipBlanks(text);
    const std::size_t span = NumberSpan(text, true);
    if (span == 0 || *SkipBlanks(text + span) != 0)
        return false;
    if (value)
        *value = ToDouble(text, span);
    return true;
}

std::string FormatDouble(double value, int decimals)
{
    if (!std::isfinite(value))
        return "0";
    if (decimals < 0)
        decimals = 0;
    if (decimals > 10)
        decimals = 10;
    char buffer[512];
    if (std::fabs(value) >= 1e15)
        std::snprintf(buffer, sizeof buffer, "%.15g", value);
    else
        std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    std::string s(buffer);
    if (s.find('.') != std::string::npos && s.find('e') == std::string::npos) {
        while (!s.empty() && s.back() == '0')
            s.pop_back();
        if (!s.empty() && s.back() == '.')
            s.pop_back();
    }
    if (s == "-0")
        s = "0";
    return s;
}

std::string WithCommas(const std::string& number)
{
    std::size_t start = 0;
    if (start < number.size() && (number[start] == '-' || number[start] == '+'))
        ++start;
    std::size_t end = start;
    while (end < number.size() && IsDigit(number[end]))
        ++end;
    std::string out = number.substr(0, start);
    for (std::size_t i = start; i < end; ++i) {
        out += number[i];
        const std::size_t left = end - i - 1;
        if (left > 0 && left % 3 == 0)
            out += ',';
    }
    out += number.substr(end);
    return out;
}

std::string LeadingNumber(const char* text, std::size_t count)
{
    if (!text)
        return std::string();
    std::size_t span = NumberSpan(text, true);
    // A lone sign or point is no number; keep what NumberSpan found.
    if (span > count)
        span = count;
    return std::string(text, span);
}

void CopySubstring(char* out, std::size_t size, const char* text, int start, int count)
{
    if (!text || start < 0 || count <= 0) {
        CopyText(out, size, "");
        return;
    }
    // The start may lie past the end: it must not be read from there.
    const std::size_t at = static_cast<std::size_t>(start);
    if (strnlen(text, at) < at) {
        CopyText(out, size, "");
        return;
    }
    const std::size_t n = strnlen(text + at, static_cast<std::size_t>(count));
    CopyText(out, size, std::string(text + at, n).c_str());
}

void CopyLeadingNumber(char* out, std::size_t size, const char* text, std::size_t count)
{
    CopyText(out, size, LeadingNumber(text, count).c_str());
}

void InsertCommas(char* text, std::size_t size)
{
    if (!text || size == 0)
        return;
    const std::string number(text, strnlen(text, size));
    CopyText(text, size, WithCommas(number).c_str());
}

void FormatWithCommas(long value, char* out, std::size_t size)
{
    CopyText(out, size, WithCommas(std::to_string(value)).c_str());
}

std::size_t CommasRoom(std::size_t length)
{
    return length == 0 ? 1 : length + (length - 1) / 3 + 1;
}

double Divide(double numerator, double denominator)
{
    return denominator == 0.0 ? 0.0 : numerator / denominator;
}

double RoundToStep(double value, double step)
{
    if (!(step > 0.0) || !std::isfinite(step) || !std::isfinite(value))
        return value;
    double q = value / step;
    // 2.345 / 0.01 comes out as 234.49999999999997: settle the quotient to
    // nine places first, so that a half written in decimal rounds as a half.
    if (std::fabs(q) < 1e6)
        q = std::round(q * 1e9) / 1e9;
    double r = std::round(q) * step;
    // A step such as 0.01 has no exact binary form; round the product to the
    // step's own decimals, so that 8.5 stays 8.5 and not 8.5000000001.
    if (step < 1.0) {
        const double places = std::ceil(-std::log10(step) - 1e-9);
        const double scale = std::pow(10.0, places);
        r = std::round(r * scale) / scale;
    }
    return r == 0.0 ? 0.0 : r;
}

bool IsUnit(const char* units, const char* name)
{
    return units && SameNoCase(units, name);
}

namespace {

// Units per inch; MULT counts inches in multiples of the reference.
double PerInch(const char* unit, double dpi, double reference)
{
    if (IsUnit(unit, "CM"))
        return 2.54;
    if (IsUnit(unit, "PICA"))
        return 6.0;
    if (IsUnit(unit, "PIX"))
        return dpi;
    if (IsUnit(unit, "MULT"))
        return Divide(1.0, reference);
    return 1.0;
}

const char* UnitName(const char* unit)
{
    static const char* const names[] = {"IN", "CM", "PICA", "PIX", "MULT"};
    for (const char* n : names)
        if (IsUnit(unit, n))
            return n;
    return "IN";
}

}  // namespace

double Convert(const char* from, const char* to, double value, double dpi, double reference)
{
    const char* f = UnitName(from);
    const char* t = UnitName(to);
    if (std::strcmp(f, t) == 0)
        return value;
    const double inches = Divide(value, PerInch(f, dpi, reference));
    return inches * PerInch(t, dpi, reference);
}

void RotatedSize(double angle, double width, double height, double* outWidth, double* outHeight)
{
    double a = std::fmod(angle, 360.0);
    if (a < 0)
        a += 360.0;
    double w, h;
    // Right angles exactly: callers cut the result to whole pixels, and a
    // cosine of 1e-17 would turn 480 into 479.
    if (a == 0.0 || a == 180.0) {
        w = width;
        h = height;
    } else if (a == 90.0 || a == 270.0) {
        w = height;
        h = width;
    } else {
        const double r = a * 3.14159265358979323846 / 180.0;
        const double c = std::fabs(std::cos(r)), s = std::fabs(std::sin(r));
        w = std::fabs(width) * c + std::fabs(height) * s;
        h = std::fabs(width) * s + std::fabs(height) * c;
    }
    if (outWidth)
        *outWidth = w;
    if (outHeight)
        *outHeight = h;
}

ScalingMode ScalingModeOf(const char* text, bool distort)
{
    static const char* const names[] = {"Fit in Frame",         "Fit in Width",          "Fit in Height",
                                        "Distort to Frame",     "Distort Aspect Ratio",  "Maintain Aspect Ratio",
                                        "Fit in Display",       "Fit in Display Width"};
    if (text)
        for (int i = 0; i < 8; ++i)
            if (SameNoCase(text, names[i]))
                return static_cast<ScalingMode>(i);
    return distort ? kDistortToFrame : kFitInFrame;
}

namespace {

long ClampPixels(double v)
{
    if (!(v >= 1.0))
        return 1;
    if (v > 32767.0)
        return 32767;
    return static_cast<long>(std::lround(v));
}

double ToPixels(double value, const char* units, double dpi, long imagePixels)
{
    if (value <= 0.0)
        return 0.0;
    if (IsUnit(units, "MULT"))
        return value * imagePixels;
    return Convert(units, "PIX", value, dpi, 0.0);
}

}  // namespace

int ComputeResize(const ResizeRequest& rq, long imageWidth, long imageHeight, long* newWidth, long* newHeight)
{
    const double hdpi = rq.horzDpi > 0.0 ? rq.horzDpi : 300.0;
    const double vdpi = rq.vertDpi > 0.0 ? rq.vertDpi : 300.0;
    const double tw = ToPixels(rq.width, rq.units, hdpi, imageWidth);
    const double th = ToPixels(rq.height, rq.units, vdpi, imageHeight);
    const bool haveImage = imageWidth > 0 && imageHeight > 0;
    // The distortion factor counts only in the modes that show it.
    double a = rq.aspect > 0.0 ? rq.aspect : 1.0;
    if (rq.mode == kDistortToFrame || rq.mode == kMaintainAspect || rq.mode == kFitInDisplay)
        a = 1.0;
    const double ratio = haveImage ? (double(imageWidth) / double(imageHeight)) * a : 0.0;

    double w = 0, h = 0;
    auto byWidth = [&] { w = tw; h = tw / ratio; };
    auto byHeight = [&] { h = th; w = th * ratio; };
    switch (rq.mode) {
    case kFitInFrame:
    case kFitInDisplay:
        if (!haveImage)
            return 0;
        if (tw > 0 && th > 0) {
            if (tw / th > ratio)
                byHeight();
            else
                byWidth();
        } else if (tw > 0) {
            byWidth();
        } else if (th > 0) {
            byHeight();
        } else {
            return 0;
        }
        break;
    case kFitInWidth:
    case kFitInDisplayWidth:
        if (!haveImage || tw <= 0)
            return 0;
        byWidth();
        break;
    case kFitInHeight:
        if (!haveImage || th <= 0)
            return 0;
        byHeight();
        break;
    case kDistortToFrame:
        if (tw <= 0 && th <= 0)
            return 0;
        w = tw > 0 ? tw : imageWidth;
        h = th > 0 ? th : imageHeight;
        if (w <= 0 || h <= 0)
            return 0;
        break;
    case kDistortAspect:
        if (!haveImage || a == 1.0)
            return 0;
        w = imageWidth * a;
        h = imageHeight;
        break;
    case kMaintainAspect:
        if (!haveImage)
            return 0;
        if (tw > 0)
            byWidth();
        else if (th > 0)
            byHeight();
        else
            return 0;
        break;
    }
    if (newWidth)
        *newWidth = ClampPixels(w);
    if (newHeight)
        *newHeight = ClampPixels(h);
    return 1;
}

void SplitPath(const char* path, char* dir, char* name, char* ext, std::size_t size)
{
    const char* p = path ? path : "";
    const char* base = p;
    for (const char* c = p; *c; ++c)
        if (*c == '\\' || *c == '/' || *c == ':')
            base = c + 1;
    const char* dot = std::strrchr(base, '.');
    if (dir) {
        std::string d(p, static_cast<std::size_t>(base - p));
        CopyText(dir, size, d.c_str());
    }
    if (name) {
        std::string n = dot ? std::string(base, static_cast<std::size_t>(dot - base)) : std::string(base);
        CopyText(name, size, n.c_str());
    }
    if (ext)
        CopyText(ext, size, dot ? dot + 1 : "");
}

std::uint32_t ParseHexRgb(const char* text)
{
    std::uint32_t v = 0;
    if (!text)
        return 0;
    text = SkipBlanks(text);
    if (text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
        text += 2;
    for (; *text && std::isxdigit(static_cast<unsigned char>(*text)); ++text) {
        const char c = Lower(*text);
        const unsigned d = IsDigit(c) ? unsigned(c - '0') : unsigned(c - 'a' + 10);
        v = (v << 4) | d;
    }
    return v & 0xFFFFFFu;
}

void FormatHexRgb(unsigned red, unsigned green, unsigned blue, char out[7])
{
    std::snprintf(out, 7, "%02X%02X%02X", red & 0xFF, green & 0xFF, blue & 0xFF);
}

bool AppendListEntry(const char* entry, std::vector<std::string>& items)
{
    if (!entry || !*entry)
        return false;
    const char* start = entry;
    for (const char* c = entry;; ++c) {
        if (*c == '~' || *c == 0) {
            if (*c == 0 && c == start && c != entry)
                return true;  // the entry ended in "~": the list goes on
            items.emplace_back(start, static_cast<std::size_t>(c - start));
            if (*c == 0)
                return false;
            start = c + 1;
        }
    }
}

}  // namespace zvw
