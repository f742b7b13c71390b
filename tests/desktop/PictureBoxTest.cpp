#include "desktop/PictureBox.h"

#include "desktop/Label.h"

#include <QTest>

#include <gtest/gtest.h>

namespace tvx::qt {
namespace {

constexpr QPoint Middle{20, 20};

/// A button that is for other things: the wheel's and those at the sides.
class OtherButtonTest : public testing::TestWithParam<Qt::MouseButton> {};
INSTANTIATE_TEST_SUITE_P(Every, OtherButtonTest,
                         testing::Values(Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton));

TEST_P(OtherButtonTest, does_nothing_on_a_surface) {
    PictureBox box;
    box.resize(40, 40);
    int presses = 0;
    box.onMouseDown = [&](Qt::MouseButton, TwipsPoint) { ++presses; };
    box.onMouseUp = [&](Qt::MouseButton, TwipsPoint) { ++presses; };
    QTest::mouseClick(&box, GetParam(), Qt::NoModifier, Middle);
    QTest::mouseDClick(&box, GetParam(), Qt::NoModifier, Middle);
    EXPECT_EQ(presses, 0);
    QTest::mouseClick(&box, Qt::RightButton, Qt::NoModifier, Middle);
    EXPECT_EQ(presses, 2);
}

TEST_P(OtherButtonTest, is_not_held_where_it_moves) {
    PictureBox box;
    box.resize(40, 40);
    Qt::MouseButtons held = Qt::AllButtons;
    box.onMouseMove = [&](Qt::MouseButtons buttons, TwipsPoint) { held = buttons; };
    const auto move = [&](Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, Middle, box.mapToGlobal(Middle), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(&box, &event);
        return held;
    };
    EXPECT_EQ(move(GetParam()), Qt::NoButton);
    EXPECT_EQ(move(GetParam() | Qt::LeftButton), Qt::LeftButton);
}

TEST_P(OtherButtonTest, does_nothing_on_a_label) {
    Label label;
    label.resize(40, 40);
    int presses = 0;
    label.onPress = [&](Qt::MouseButton) { ++presses; };
    QTest::mouseClick(&label, GetParam(), Qt::NoModifier, Middle);
    EXPECT_EQ(presses, 0);
    QTest::mouseClick(&label, Qt::LeftButton, Qt::NoModifier, Middle);
    EXPECT_EQ(presses, 1);
}

} // namespace
} // namespace tvx::qt
