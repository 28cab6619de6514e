// The choice of dialog by format: the rules go in order, the first that
// fits decides, and names compare without regard to case.
#include <gtest/gtest.h>

#include "frame_tables.h"

namespace {

using namespace zv;

constexpr short kRaster = 1, kVector = 2, kMetafile = 3, kFax = 5, kEntity = 6;

struct DestCase {
    const char* key;
    short destType;
    short srcType;
    unsigned short expected;
};

TEST(DestDialog, FirstRuleThatFitsDecides)
{
    const DestCase cases[] = {
        {"TIF", kFax, kRaster, kDlgFaxOut},          // the fax type goes before any name
        {"TXT", kRaster, kRaster, kDlgNone},
        {"eps", kVector, kRaster, kDlgEpsOut},       // names before types, any case
        {"dxf", kRaster, kVector, kDlgEntityOut},    // the 3D sheet for DXF whatever its type
        {"CGM", kRaster, kRaster, kDlgVectorOut},
        {"WMF", kMetafile, kRaster, kDlgRasterOut},  // a metafile is raster for a raster source...
        {"WMF", kMetafile, kVector, kDlgVectorOut},  // ...and vector for a vector one
        {"IGS", kEntity, kRaster, kDlgEntityOut},
        {"TIFF", kRaster, kRaster, kDlgRasterOut},   // a whole name, not a prefix
        {nullptr, kVector, kRaster, kDlgVectorOut},  // no key: the types decide
    };
    for (const DestCase& c : cases)
        EXPECT_EQ(DestDialogNumber(c.key, c.destType, c.srcType), c.expected)
            << (c.key ? c.key : "(null)") << " type " << c.destType << " from " << c.srcType;
}

TEST(SourceDialog, NamedFormatsFirstThenInputOptionsOnlyWhenWantedAndNotSaving)
{
    // A named format has its dialog whatever the operation, in any case;
    // CUT has one that its caller runs: the number alone says so.
    for (short operation : {0, 2}) {
        SourceDialogChoice pcd = SourceDialogFor("pcd", kEntity, 0, operation);
        EXPECT_EQ(pcd.number, kDlgPcdSource);
        EXPECT_EQ(pcd.proc, SourceDialogProc::kPcd);
        SourceDialogChoice cut = SourceDialogFor("CUT", kRaster, 1, operation);
        EXPECT_EQ(cut.number, kDlgCutSource);
        EXPECT_EQ(cut.proc, SourceDialogProc::kNone);
    }

    SourceDialogChoice open = SourceDialogFor("BMP", kRaster, 1, 0);
    EXPECT_EQ(open.number, kDlgInputOptions);
    EXPECT_EQ(open.proc, SourceDialogProc::kInputOptions);

    EXPECT_EQ(SourceDialogFor("IGS", kEntity, 1, 7).proc, SourceDialogProc::k3d);

    for (SourceDialogChoice none : {SourceDialogFor("BMP", kRaster, 1, 2), SourceDialogFor("BMP", kRaster, 0, 0),
                                    SourceDialogFor("IGS", kEntity, 0, 0)}) {
        EXPECT_EQ(none.number, kDlgNone);
        EXPECT_EQ(none.proc, SourceDialogProc::kNone);
    }

    // Operation 1 has no meaning of its own: it isn't a save.
    EXPECT_EQ(SourceDialogFor("BMP", kRaster, 1, 1).number, kDlgInputOptions);
}

}  // namespace
