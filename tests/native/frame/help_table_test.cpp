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
    const std::pair<unsigned long, unsigned long> spots[] = {
        {3300, 1007},  {3501, 1008},  {2703, 1020},  {1305, 1021},  {4533, 1058},  {4526, 1059},
        {4524, 1061},  {4530, 1064},  {1808, 1113},  {1506, 1126},  {4518, 1123},  {1609, 1224},
        {1610, 1225},  {1702, 1308},  {4520, 1309},  {4522, 1310},  {1904, 1409},  {4704, 1410},
        {1517, 1414},  {1502, 1415},  {5205, 1419},  {3207, 1420},  {4101, 1425},  {5403, 1431},
        {3009, 1612},  {3010, 1613},  {1901, 98743}, {2003, 98750}, {2008, 98751}, {1522, 98844},
    };
    for (auto [control, context] : spots)
        EXPECT_EQ(byControl[control], context) << control;
}

}  // namespace
