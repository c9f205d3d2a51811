// SPDX-License-Identifier: BSD-3-Clause
// Every identifier has a text, and every argument its place in it.
#include "hosts/messages/message_catalogue.h"
#include "hosts/messages/status_advice.h"

#include "error_identifiers.h"
#include "every_identifier.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace Ovard::gridio::netcdf;
using hosts::messages::generalTemplates;
using hosts::messages::MessageTemplate;
using hosts::messages::messageText;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(MessageCatalogue, HasATextForEveryIdentifierWithItsArgumentsInOrder)
{
    const std::vector<Occurrence> occurrences = everyIdentifier();
    for (const Occurrence& o : occurrences) {
        const std::string text = messageText(*o.id);
        SCOPED_TRACE(text);
        EXPECT_THAT(text, Not(HasSubstr(o.id->identifier())));
        EXPECT_THAT(text, Not(HasSubstr("{")));
        std::size_t from = 0;
        for (const std::string& argument : o.argumentsInText) {
            const std::size_t at = text.find(argument, from);
            ASSERT_NE(at, std::string::npos) << argument;
            from = at + argument.size();
        }
    }
}

TEST(MessageCatalogue, HasNoTextForAnIdentifierThatNothingRaises)
{
    std::vector<std::string_view> raised;
    for (const Occurrence& o : everyIdentifier())
        raised.emplace_back(o.id->identifier());
    std::vector<std::string_view> withText;
    for (const MessageTemplate& general : generalTemplates())
        withText.push_back(general.identifier);
    EXPECT_THAT(withText, testing::UnorderedElementsAreArray(raised));
}

TEST(MessageCatalogue, BeginsALibraryFailureWithOperationStatusAndTheLibrarysText)
{
    const std::string text = messageText(
        libraryFailure("getVaraDouble", "NC_EEDGE", "Start+count exceeds dimension bound"));
    EXPECT_THAT(text, StartsWith("getVaraDouble: NC_EEDGE: Start+count exceeds dimension bound\n"));
    EXPECT_THAT(text, HasSubstr("zero-based"));
}

TEST(MessageCatalogue, AddsNothingToAStatusWithoutAdvice)
{
    EXPECT_EQ(messageText(libraryFailure("sync", "-200", "Unknown Error")),
              "sync: -200: Unknown Error");
}

TEST(MessageCatalogue, AdvisesOnRemoteFailuresToo)
{
    EXPECT_THAT(messageText(librarydapFailure("open", "NC_ECURL", "text")),
                StartsWith("open: NC_ECURL: text\nThe remote server"));
}

TEST(MessageCatalogue, TakesBracesInArgumentsAsTheyAre)
{
    EXPECT_THAT(messageText(badScalarArgument("{2}", "{1}")), HasSubstr("\"{2}\" must be one {1}"));
    EXPECT_THAT(messageText(unrecognizedOperation("{")), HasSubstr("\"{\""));
}

struct unlisted : msgcat::BaseMsgID {
    explicit unlisted(std::vector<msgcat::MessageArgument> arguments)
        : BaseMsgID("other:unlisted", std::move(arguments))
    {
    }
};

TEST(MessageCatalogue, FallsBackOnTheIdentifierAndItsArguments)
{
    using msgcat::MessageText;
    EXPECT_EQ(messageText(unlisted({})), "other:unlisted");
    EXPECT_EQ(messageText(unlisted(
                  {MessageText(std::string("a")), -5L, MessageText(std::u16string(u"\u00E9"))})),
              "other:unlisted: a, -5, \xC3\xA9");
}

TEST(StatusAdvice, ExistsOnlyForKnownNames)
{
    for (const char* codeName : {"2", "13", "NC_EHDFERR", "NC_ENOTNC", "NC_EINVALCOORDS"})
        EXPECT_NE(hosts::messages::statusAdvice(codeName), nullptr) << codeName;
    for (const char* codeName : {"", "1", "NC_", "NC_EEDGE ", "nc_eedge"})
        EXPECT_EQ(hosts::messages::statusAdvice(codeName), nullptr) << codeName;
}

} // namespace
