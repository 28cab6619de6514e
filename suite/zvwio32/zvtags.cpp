// Tag access with the chain rules, the resolution tags of a destination, and
// the resize that the size tags ask for.
#include <climits>
#include <string>

#include "portable/zvw_portable.h"
#include "zvwio32.h"

namespace {

std::string Join(const char* a, const char* b)
{
    std::string s = a ? a : "";
    if (b)
        s += b;
    return s;
}

// The note that says the resolution tags of a destination hold dots per
// inch while a page lives. Notes are never stored nor fused, so the mark
// goes away with the child set of the sheet that made it.
std::string DpiNote(const char* destKey)
{
    return Join("RESDPI:", destKey);
}

bool ResolutionsInDpi(TagSet* tags, const char* destKey)
{
    const char* note = tags ? tags->GetNote(DpiNote(destKey).c_str()) : nullptr;
    return note && *note;
}

// The text a resolution tag had before a conversion, and the text the
// conversion wrote, kept in notes so that the way back restores the very
// text of a value nobody changed: 254000 / (254000 / 846) need not give
// 846 again in floating point.
std::string BeforeNote(const std::string& key)
{
    return "RESWAS:" + key;
}

std::string AfterNote(const std::string& key)
{
    return "RESMADE:" + key;
}

void InvertResolution(TagSet* tags, const std::string& key)
{
    const char* present = ZvGetTag(tags, key.c_str());
    const char* made = tags->GetNote(AfterNote(key).c_str());
    const char* before = tags->GetNote(BeforeNote(key).c_str());
    if (present != nullptr && made != nullptr && *made && before != nullptr && std::string(present) == made) {
        const std::string original = before;
        tags->SetNote(BeforeNote(key).c_str(), "");
        tags->SetNote(AfterNote(key).c_str(), "");
        ZvSetTag(tags, key.c_str(), original.c_str());
        return;
    }
    const double v = ZvGetFloatTag(tags, key.c_str());
    if (v == 0.0)
        return;
    const std::string converted = zvw::FormatDouble(254000.0 / v, 32);
    tags->SetNote(BeforeNote(key).c_str(), present);
    tags->SetNote(AfterNote(key).c_str(), converted.c_str());
    ZvSetTag(tags, key.c_str(), converted.c_str());
}

}  // namespace

ZVWIO32_API char* ZvGetTag(TagSet* tags, const char* key)
{
    return tags ? const_cast<char*>(tags->Get(key)) : nullptr;
}

ZVWIO32_API int ZvGetIntTag(TagSet* tags, const char* key)
{
    const long v = zvw::ParseLong(ZvGetTag(tags, key));
    return v > INT_MAX ? INT_MAX : (v < INT_MIN ? INT_MIN : static_cast<int>(v));
}

ZVWIO32_API double ZvGetFloatTag(TagSet* tags, const char* key)
{
    return zvw::ParseDouble(ZvGetTag(tags, key));
}

ZVWIO32_API short ZvSetTag(TagSet* tags, const char* key, const char* value)
{
    return tags ? tags->Set(key, value) : OKI_ERR_ARGUMENT;
}

ZVWIO32_API short ZvSetIntTag(TagSet* tags, const char* key, int value)
{
    return ZvSetTag(tags, key, std::to_string(value).c_str());
}

ZVWIO32_API short ZvSetFloatTag(TagSet* tags, const char* key, double value, int digits)
{
    return ZvSetTag(tags, key, zvw::FormatDouble(value, digits).c_str());
}

ZVWIO32_API short ZvSetGlobalTag(TagSet* tags, const char* key, const char* value)
{
    return tags ? tags->Root()->SetOwn(key, value) : OKI_ERR_ARGUMENT;
}

ZVWIO32_API short ZvSetGlobalIntTag(TagSet* tags, const char* key, int value)
{
    return ZvSetGlobalTag(tags, key, std::to_string(value).c_str());
}

ZVWIO32_API TagSearch* ZvOpenTagSearch(TagSet* tags, const char* prefix)
{
    if (!tags)
        return nullptr;
    return new TagSearch(tags, prefix ? prefix : "");
}

ZVWIO32_API char* ZvTagSearch(TagSearch* search)
{
    return search ? const_cast<char*>(search->Next()) : nullptr;
}

ZVWIO32_API void ResolutionToDPI(TagSet* tags, const char* destKey)
{
    if (!tags || ResolutionsInDpi(tags, destKey))
        return;
    InvertResolution(tags, Join(destKey, "HR"));
    InvertResolution(tags, Join(destKey, "VR"));
    tags->SetNote(DpiNote(destKey).c_str(), "DPI");
}

ZVWIO32_API void ResolutionToDeciMicrons(TagSet* tags, const char* destKey)
{
    if (!tags || !ResolutionsInDpi(tags, destKey))
        return;
    InvertResolution(tags, Join(destKey, "HR"));
    InvertResolution(tags, Join(destKey, "VR"));
    tags->SetNote(DpiNote(destKey).c_str(), "");
}

ZVWIO32_API int CalculateResize(TagSet* tags, const char* destKey, long width, long height, long* newWidth,
                                long* newHeight)
{
    if (newWidth)
        *newWidth = 0;
    if (newHeight)
        *newHeight = 0;
    if (!tags)
        return 0;
    auto text = [&](const char* name) { return ZvGetTag(tags, Join(destKey, name).c_str()); };
    auto number = [&](const char* name) { return ZvGetFloatTag(tags, Join(destKey, name).c_str()); };

    zvw::ResizeRequest rq;
    rq.width = number("W");
    rq.height = number("H");
    rq.units = text("UNITS");
    rq.aspect = number("A");
    const char* distort = text("DISTORT");
    rq.mode = zvw::ScalingModeOf(text("SCALING"), distort && zvw::IsUnit(distort, "ON"));
    double hr = number("HR"), vr = number("VR");
    if (!ResolutionsInDpi(tags, destKey)) {
        hr = zvw::Divide(254000.0, hr);
        vr = zvw::Divide(254000.0, vr);
    }
    rq.horzDpi = hr;
    rq.vertDpi = vr;
    return zvw::ComputeResize(rq, width, height, newWidth, newHeight);
}
