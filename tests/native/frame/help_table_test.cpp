// The control table that goes to the help viewer: its size, its end, and
// spots where a slip in the data would send a control to the wrong topic.
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
}

TEST(HelpTable, ControlsReachTheirTopics)
{
    unsigned long words[kHelpTableWords];
    zv::FillHelpTable(words);
    auto byControl = TableByControl(words);
    // Rows with runs and scattered members, and the far ends of the table.
    const std::pair<unsigned long, unsigned long> spots[] = {
        {3300, 1007}, {4526, 1059}, {4530, 1064}, {4518, 1123}, {1609, 1224}, {4522, 1310},
        {1904, 1409}, {5205, 1419}, {3010, 1613}, {2003, 98750}, {1522, 98844},
    };
    for (auto [control, context] : spots)
        EXPECT_EQ(byControl[control], context) << control;
}

}  // namespace
