#include "desktop/LightPalette.h"

#include "desktop/Form.h"
#include "support/Scripted.h"

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QListWidget>
#include <QPalette>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

namespace tvx::qt {
namespace {

/// The colours of a desktop at night, all roles of it.
QPalette Dark() {
    QPalette dark;
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        const auto which = static_cast<QPalette::ColorRole>(role);
        const bool text = which == QPalette::WindowText || which == QPalette::Text ||
                          which == QPalette::ButtonText || which == QPalette::BrightText ||
                          which == QPalette::ToolTipText || which == QPalette::HighlightedText;
        dark.setColor(which, text ? QColor(240, 240, 240) : QColor(30, 30, 30));
    }
    return dark;
}

/// One of each control that a screen is made of.
class OneOfEach : public Form {
  public:
    explicit OneOfEach(Ports& ports) : Form(ports, "FormOneOfEach", nullptr) {
        QVBoxLayout& column = Column();
        AddLabel("Label1", "A text", column).SetColours(QBColor(1), std::nullopt);
        Frame& frame = AddFrame("Frame1", "A frame", column);
        AddField("Text1", "A box", frame).SetText("Adams");
        AddOptions(options_, "Option1", 0, {"One", "Other"}, frame, 1);
        AddCheck("Check1", "A check", frame, true);
        column.addWidget(&Add<QComboBox>("Combo1", "A choice"));
        auto& list = Add<QListWidget>("List1", "A list");
        list.addItems({QStringLiteral("Adams"), QStringLiteral("Brown")});
        list.setCurrentRow(0);
        column.addWidget(&list);
        column.addWidget(&Add<QPlainTextEdit>("Text2", "Remarks"));
        AddCommands(column, {}, {{"cmdOK", "&OK", [] {}, Role::Default}});
        FixSize();
    }

  private:
    Options<> options_;
};

class LightPaletteTest : public testing::Test {
  protected:
    test::ScriptedPorts script;
    const QPalette before = QApplication::palette();

    void TearDown() override { QApplication::setPalette(before); }

    QImage Picture() {
        OneOfEach form(script.ports);
        form.ShowModeless();
        QApplication::processEvents();
        QImage image(form.size(), QImage::Format_RGB32);
        form.render(&image);
        return image;
    }
};

TEST_F(LightPaletteTest, is_the_same_on_a_dark_desktop_in_every_role) {
    KeepLightPalette();
    const QPalette light = QApplication::palette();
    QApplication::setPalette(Dark());
    ASSERT_NE(QApplication::palette().color(QPalette::Window), light.color(QPalette::Window));
    KeepLightPalette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            const auto which = static_cast<QPalette::ColorRole>(role);
            if (which == QPalette::NoRole) continue;
            EXPECT_EQ(QApplication::palette().color(group, which), light.color(group, which)) << role;
        }
}

TEST_F(LightPaletteTest, leaves_no_mixture_of_light_and_dark_in_a_form) {
    KeepLightPalette();
    const QImage light = Picture();
    QApplication::setPalette(Dark());
    EXPECT_NE(Picture(), light);
    KeepLightPalette();
    EXPECT_EQ(Picture(), light);
}

} // namespace
} // namespace tvx::qt
