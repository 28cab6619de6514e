// Every code the engine gives has its text in the message library.
#include <gtest/gtest.h>

#include <string>

#include "engine_test_support.h"
#include "okacvt32.h"

namespace {

TEST(Messages, EveryEngineCodeHasItsText)
{
    MsgLib messages;
    char text[256];
    for (int i = 0; i < ravi::kEngineCodeCount; ++i) {
        const ravi::EngineCodeEntry& entry = ravi::kEngineCodeTable[i];
        EXPECT_EQ(std::string(messages.GetMessageA(entry.code, text)), entry.text) << entry.code;
    }
    for (short code : {kRavicliNothingToUndo, kRavicliNotAvailable, kRavicliNoWindow}) {
        std::string said = messages.GetMessageA(code, text);
        EXPECT_EQ(said.find("Unknown error"), std::string::npos) << code;
    }
}

}  // namespace
