// SPDX-License-Identifier: BSD-3-Clause
// Raising errors and warnings, and what reaches the script.
#include "tests/standalone/stand_in_module.h"

#include "error_identifiers.h"

#include <gmock/gmock.h>

#include <new>
#include <type_traits>

namespace {

using Ovard::gridio::netcdf::badIndexArgumentLength;
using Ovard::gridio::netcdf::closingFileHandle;
using standalone::Argument;
using standalone::Raiser;
using testing::ElementsAre;
using testing::HasSubstr;

struct unlisted : msgcat::BaseMsgID {
    explicit unlisted(const std::u16string& text)
        : BaseMsgID("test:unlisted", {msgcat::MessageText(text), -7L})
    {
    }
};

class RaisedError : public HostContract {};

TEST_F(RaisedError, ReachesTheScriptWithItsArgumentsWhetherTheRaiserThrowsOrReturns)
{
    for (const Raiser raiser : {Raiser::returns, Raiser::throws}) {
        host.setRaiser(raiser);
        bool unwound = false;
        const auto outcome = inCall([&](const Call&) {
            const std::shared_ptr<void> guard(nullptr, [&](void*) { unwound = true; });
            vxErrMsgId(badIndexArgumentLength("START", "temp", 3, 2));
        });
        EXPECT_TRUE(unwound);
        ASSERT_TRUE(outcome.raised);
        EXPECT_EQ(outcome.raised->identifier, "Ovard:gridio:netcdf:badIndexArgumentLength");
        EXPECT_EQ(outcome.raised->name(), "badIndexArgumentLength");
        EXPECT_THAT(outcome.raised->arguments,
                    ElementsAre(Argument("START"), Argument("temp"), Argument(3L), Argument(2L)));
        EXPECT_THAT(outcome.raised->message, HasSubstr("START of variable \"temp\""));
    }
}

TEST_F(RaisedError, TakesWideTextForAnArgument)
{
    const auto outcome = inCall([](const Call&) { vxErrMsgId(unlisted(u"h\u00F6he")); });
    ASSERT_TRUE(outcome.raised);
    EXPECT_THAT(outcome.raised->arguments, ElementsAre(Argument("h\xC3\xB6he"), Argument(-7L)));
}

TEST(RaisedException, IsOfItsBaseAndCarriesItsIdentifier)
{
    using Thrown = fnd::except::Exception<closingFileHandle, std::exception>;
    static_assert(std::is_base_of_v<std::exception, Thrown>);
    static_assert(std::is_base_of_v<fnd::except::IUserException, Thrown>);

    const Thrown thrown{closingFileHandle()};
    EXPECT_STREQ(thrown.what(), "Ovard:gridio:netcdf:closingFileHandle");
    EXPECT_EQ(thrown.messageId().identifier(), thrown.what());
    EXPECT_TRUE(thrown.messageId().arguments().empty());
}

TEST_F(RaisedError, IsCaughtInTheModuleWhenTheRaiserReturns)
{
    const auto outcome = inCall([](const Call& call) {
        try {
            vxErrMsgId(closingFileHandle());
        } catch (const fnd::except::IMsgIDException& error) {
            call.results[0] = vxCreateString(error.messageId().identifier());
        }
    });
    EXPECT_EQ(outcome.results.at(0).toText(), "Ovard:gridio:netcdf:closingFileHandle");
}

class Warning : public HostContract {};

TEST_F(Warning, IsIssuedAndReturns)
{
    bool returned = false;
    const auto outcome = inCall([&](const Call&) {
        vxWarningMsgId(closingFileHandle());
        vxWarningMsgId(unlisted(u"x"));
        returned = true;
    });
    EXPECT_TRUE(returned);
    EXPECT_TRUE(outcome.succeeded());
    ASSERT_EQ(host.warnings().size(), 2u);
    EXPECT_EQ(host.warnings()[0].name(), "closingFileHandle");
    EXPECT_TRUE(host.warnings()[0].arguments.empty());
    EXPECT_THAT(host.warnings()[1].arguments, ElementsAre(Argument("x"), Argument(-7L)));
}

class HostBoundary : public HostContract {};

TEST_F(HostBoundary, TurnsEveryOtherExceptionIntoAnErrorOfTheHost)
{
    struct NoException {};
    const struct {
        std::function<void()> raise;
        const char* identifier;
        const char* message;
    } cases[] = {
        {[] { throw std::bad_alloc(); }, "standalone:outOfMemory", "out of memory"},
        {[] { throw standalone::OutOfMemory(); }, "standalone:outOfMemory", "out of memory"},
        {[] { throw std::runtime_error("broken"); }, "standalone:internal", "broken"},
        {[] { throw 5; }, "standalone:internal", "unknown kind"},
        {[] { throw NoException(); }, "standalone:internal", "unknown kind"},
        {[] { throw static_cast<const char*>(nullptr); }, "standalone:internal", "unknown kind"},
    };
    for (const auto& c : cases) {
        const auto outcome = inCall([&](const Call&) { c.raise(); });
        ASSERT_TRUE(outcome.raised) << c.identifier;
        EXPECT_EQ(outcome.raised->identifier, c.identifier);
        EXPECT_THAT(outcome.raised->message, HasSubstr(c.message));
    }
}

} // namespace
