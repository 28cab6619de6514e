// The control table that goes to the help viewer: each control once, the
// controls without a topic, and the closing pair of zeros.
#include <gtest/gtest.h>

#include <map>

#include "frame_tables.h"

namespace {

using zv::kHelpPairCount;
using zv::kHelpTableWords;

std::map<unsigned long, unsigned long> TableByControl(const unsigned long (&words)[kHelpTableWords])
{
    std::map<unsigned long, unsigned long> byControl;
    for (int i = 0; i < kHelpPairCount; ++i)
        byControl[words[2 * i]] = words[2 * i + 1];
    return byControl;
}

TEST(HelpTable, HasEachControlOnceAndEndsInTwoZeros)
{
    unsigned long words[kHelpTableWords];
    for (unsigned long& w : words)
        w = 0xDEAD;
    zv::FillHelpTable(words);

    EXPECT_EQ(words[kHelpTableWords - 2], 0u);
    EXPECT_EQ(words[kHelpTableWords - 1], 0u);
    auto byControl = TableByControl(words);
    EXPECT_EQ(byControl.size(), static_cast<size_t>(kHelpPairCount));
    EXPECT_EQ(byControl.count(0), 0u) << "a zero control would end the table early";

    int withoutTopic = 0;
    for (auto [control, context] : byControl)
        withoutTopic += context == 0;
    EXPECT_EQ(withoutTopic, 6);
    for (unsigned long control = 1611; control <= 1616; ++control)
        EXPECT_EQ(byControl[control], 0u) << control;
    // Spots where a slip in the data would send a control to the wrong topic.
    EXPECT_EQ(byControl[3300], 1007u);
    EXPECT_EQ(byControl[1522], 98844u);
}

}  // namespace
