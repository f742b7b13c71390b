#include "desktop/Screens.h"

#include "desktop/Form.h"
#include "support/Scripted.h"

#include <gtest/gtest.h>

namespace tvx::qt {
namespace {

struct PickAnswer {
    int picked = 0;
};
struct PickRequest {
    using Answer = PickAnswer;
    int from = 0;
};
struct OtherRequest {
    using Answer = PickAnswer;
};

class ScreensTest : public testing::Test {
  protected:
    test::ScriptedPorts script;
    Form owner{script.ports, "Owner", nullptr};
    Screens screens;
};

TEST_F(ScreensTest, hands_a_request_to_its_screen_with_the_form_that_asks) {
    screens.Register<PickRequest>([this](const PickRequest& request, Form& over) {
        EXPECT_EQ(&over, &owner);
        return PickAnswer{request.from + 1};
    });
    EXPECT_EQ(screens.Open(PickRequest{33}, owner).picked, 34);
}

TEST_F(ScreensTest, tells_requests_apart_by_their_kind) {
    screens.Register<PickRequest>([](const PickRequest&, Form&) { return PickAnswer{1}; });
    screens.Register<OtherRequest>([](const OtherRequest&, Form&) { return PickAnswer{2}; });
    EXPECT_EQ(screens.Open(OtherRequest{}, owner).picked, 2);
    EXPECT_EQ(screens.Open(PickRequest{}, owner).picked, 1);
}

TEST_F(ScreensTest, a_request_that_no_screen_answers_is_an_error) {
    EXPECT_THROW(screens.Open(PickRequest{}, owner), std::logic_error);
}

} // namespace
} // namespace tvx::qt
