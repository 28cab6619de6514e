// What the tests of the image pages share: a host's image of four coloured
// quadrants, its tags and registry, the driver, and a look at the thumbnail
// of the running page against the engine's own work on a fresh clone of the
// pristine thumbnail.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "core_win.h"
#include "dialog_driver.h"
#include "engine_test_support.h"
#include "frame.h"
#include "image_ids.h"
#include "okaio32.h"
#include "okamod32.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace imagepages {

using zvtest::DialogDriver;
using Entry = int (*)(HWND, TagSet*, const char*, const char*, OKAMOD*, const char*, const char*, short, Dewey*);

class ImagePageTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(enginetest::MakeQuadrants(image, 64, 48), 0); }

    // The entry on the host's image (or none) from BMP to BMP.
    int Run(Entry entry, short operation, bool withImage = true)
    {
        return static_cast<int>(d.Run([&] {
            return static_cast<INT_PTR>(
                entry(nullptr, &tags, "Zavrin", nullptr, &formats, "BMP", "BMP", operation, withImage ? &image : nullptr));
        }));
    }
    std::string Tag(const char* key)
    {
        const char* value = ZvGetTag(&tags, key);
        return value ? value : "";
    }
    // The image that DoOptions makes of a fresh copy with these tags.
    void ExpectImageIsDoOptionsOf(std::initializer_list<std::pair<const char*, const char*>> stored)
    {
        Dewey copy;
        ASSERT_EQ(enginetest::MakeQuadrants(copy, 64, 48), 0);
        TagSet set;
        for (const auto& [key, value] : stored)
            ZvSetTag(&set, key, value);
        ASSERT_EQ(DoOptions(&copy, &set, "BMP", "BMP", &formats), 0);
        EXPECT_EQ(enginetest::DibBytes(&image), enginetest::DibBytes(&copy));
    }

    TagSet tags;
    OKAMOD formats{nullptr};
    Dewey image;
    DialogDriver d;
};

// True when the thumbnail shown is what `work` makes of a fresh clone of the
// pristine thumbnail.
inline bool ThumbnailIs(const std::function<void(Dewey&)>& work)
{
    OptionContext* o = CurrentOptionContext();
    if (o->previewDewey == nullptr || o->previewBase == nullptr)
        return false;
    Dewey* fresh = new Dewey;
    bool same = DoClone(o->previewBase, &fresh) == 0;
    if (same) {
        work(*fresh);
        same = enginetest::DibBytes(fresh) == enginetest::DibBytes(o->previewDewey);
    }
    delete fresh;
    return same;
}

// Waits until the control of the running page shows `text`: a page's field
// handler may let pending messages run, and the step after a typing one
// then comes while the typing goes on.
inline DialogDriver& WaitText(DialogDriver& d, int id, const std::string& text)
{
    return d.Step("control " + std::to_string(id) + " shows " + text, [id, text](DialogDriver&, HWND sheet) {
        HWND field = DialogDriver::FindControl(sheet, id);
        if (field != nullptr && DialogDriver::TextOf(field) == text)
            return DialogDriver::Result{DialogDriver::Outcome::Done, {}};
        return DialogDriver::Result{DialogDriver::Outcome::Retry, "it shows " + DialogDriver::TextOf(field)};
    });
}

}  // namespace imagepages
