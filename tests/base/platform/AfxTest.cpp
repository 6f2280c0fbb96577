#include "ipc2581/base/platform/Afx.h"

#include <stdexcept>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

struct Shown {
    int count = 0;
    std::string text;
    unsigned type = 0;
    unsigned help = 0;
};

Shown g_shown;

int Show(const char * text, unsigned type, unsigned help)
{
    ++g_shown.count;
    g_shown.text = text;
    g_shown.type = type;
    g_shown.help = help;
    return 7;
}

int ShowNothing(const char * /*text*/, unsigned /*type*/, unsigned /*help*/)
{
    return 0;
}

// Sets a handler and gives the host's own back at the end of the test.
class Handler {
public:
    explicit Handler(AfxMessageBoxHandler handler) : m_before(AfxSetMessageBoxHandler(handler)) { g_shown = {}; }
    ~Handler() { AfxSetMessageBoxHandler(m_before); }
    Handler(const Handler &) = delete;
    Handler & operator=(const Handler &) = delete;

private:
    AfxMessageBoxHandler m_before;
};

std::string ShownOnStandardError(const char * text)
{
    testing::internal::CaptureStderr();
    AfxMessageBox(text, 0, 0);
    return testing::internal::GetCapturedStderr();
}

TEST(Afx, MessageBoxCallsTheHandlerOnce)
{
    const Handler handler(&Show);
    AfxMessageBox("file read error!", 3, 5);
    EXPECT_EQ(g_shown.count, 1);
    EXPECT_EQ(g_shown.text, "file read error!");
    EXPECT_EQ(g_shown.type, 3U);
    EXPECT_EQ(g_shown.help, 5U);
}

TEST(Afx, MessageBoxGivesWhatTheHandlerGave)
{
    const Handler handler(&Show);
    EXPECT_EQ(AfxMessageBox("text", 0, 0), 7);
}

TEST(Afx, MessageBoxWithAHandlerLeavesStandardErrorAlone)
{
    const Handler handler(&Show);
    EXPECT_EQ(ShownOnStandardError("text"), "");
}

TEST(Afx, SettingAHandlerGivesTheOneItReplaces)
{
    const Handler handler(&Show);
    EXPECT_EQ(AfxSetMessageBoxHandler(&ShowNothing), &Show);
    EXPECT_EQ(AfxSetMessageBoxHandler(nullptr), &ShowNothing);
    EXPECT_EQ(AfxSetMessageBoxHandler(&Show), nullptr);
}

TEST(Afx, ReplacedHandlerIsNoLongerCalled)
{
    const Handler handler(&Show);
    const Handler later(&ShowNothing);
    AfxMessageBox("text", 0, 0);
    EXPECT_EQ(g_shown.count, 0);
}

TEST(Afx, MessageBoxWithANullHandlerGoesToStandardError)
{
    const Handler handler(&Show);
    const Handler none(nullptr);
    EXPECT_NE(ShownOnStandardError("Print file open error!").find("Print file open error!"), std::string::npos);
    EXPECT_EQ(g_shown.count, 0);
}

TEST(Afx, PercentSignsOfAMessageAreText)
{
    const Handler none(nullptr);
    EXPECT_NE(ShownOnStandardError("100%s %d").find("100%s %d"), std::string::npos);
}

TEST(Afx, ExceptionsStandInTheStandardFamily)
{
    EXPECT_TRUE((std::is_base_of_v<std::invalid_argument, CInvalidArgException>));
    EXPECT_TRUE((std::is_base_of_v<std::runtime_error, CFileException>));
}

TEST(Afx, InvalidArgumentIsThrownByValue)
{
    EXPECT_THROW(AfxThrowInvalidArgException(), CInvalidArgException);
    EXPECT_THROW(AfxThrowInvalidArgException(), std::invalid_argument);
}

TEST(Afx, InvalidArgumentHasAText)
{
    try {
        AfxThrowInvalidArgException();
    }
    catch (const std::exception & error) {
        EXPECT_STRNE(error.what(), "");
    }
}

TEST(Afx, LocalObjectsAreDestroyedAsInvalidArgumentPasses)
{
    struct Local {
        int & destroyed;
        ~Local() { ++destroyed; }
    };
    int destroyed = 0;
    const auto fail = [&destroyed] {
        const Local local{destroyed};
        AfxThrowInvalidArgException();
    };
    EXPECT_THROW(fail(), CInvalidArgException);
    EXPECT_EQ(destroyed, 1);
}

}  // namespace
