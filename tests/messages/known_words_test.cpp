// SPDX-License-Identifier: BSD-3-Clause
// Checks that the words that messages suggest are those that the module accepts.
#include "hosts/messages/constant_names.h"
#include "hosts/messages/mode_words.h"

#include "tests/messages/message_test.h"

namespace {

using namespace hosts::messages;
using testing::ElementsAre;
using testing::IsEmpty;

class KnownWords : public testsupport::MessageTest {};

TEST_F(KnownWords, AreTheModulesConstants)
{
    std::vector<std::string> names;
    for (const Value& name : got("getConstantNames", {}).cells())
        names.push_back(name.toText());
    EXPECT_EQ(constantNames(), names);
}

TEST(NearConstantNames, DoNotNeedThePrefix)
{
    for (const char* name : {"NC_DUBLE", "DUBLE", "nc_duble", "NC_Double"})
        EXPECT_THAT(nearConstantNames(name), ElementsAre("NC_DOUBLE")) << name;
    EXPECT_THAT(nearConstantNames("NC2_EER"), ElementsAre("NC2_ERR"));
    EXPECT_THAT(nearConstantNames("ab"), IsEmpty());
    EXPECT_THAT(nearConstantNames("NC_"), IsEmpty());
}

TEST_F(KnownWords, AreTheModulesModes)
{
    for (const char* word :
         {"r", "w", "new", "create", "nc4", "wrte", "READ", "clober", "shared"}) {
        const std::vector<std::string> near = nearModeWords(word);
        ASSERT_FALSE(near.empty()) << word;
        for (const std::string& mode : near) {
            const Outcome outcome = attempt("open", {folder.file("missing"), mode});
            EXPECT_EQ(outcome.raised->name(), "libraryFailure") << mode;
        }
    }
}

TEST(NearModeWords, KnowThoseOfOtherPrograms)
{
    EXPECT_THAT(nearModeWords("r"), ElementsAre("nowrite"));
    EXPECT_THAT(nearModeWords("Read"), ElementsAre("nowrite"));
    EXPECT_THAT(nearModeWords("r+"), ElementsAre("write"));
    EXPECT_THAT(nearModeWords("append"), ElementsAre("write"));
    EXPECT_THAT(nearModeWords("zzz"), IsEmpty());
}

} // namespace
