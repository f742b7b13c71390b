// What the boxes of a real desktop do with Enter and Escape.
#include "desktop/QtPorts.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace tvx::qt {
namespace {

/// The answer to a key that a person presses as soon as the box shows.
Answer Pressed(int style, Qt::Key key) {
    QTimer::singleShot(0, [key] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QTest::keyClick(box, key);
        if (box->isVisible()) box->button(QMessageBox::Yes)->click(); // it waits for a real answer
    });
    return QtPrompt().Show({"Adams Anna will be deleted.", style, "Employee delete", ""});
}

/// The caption of the button that has the focus when the box shows.
std::string Focused(int style) {
    std::string caption;
    QTimer::singleShot(0, [&caption] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        caption =
            qobject_cast<QPushButton*>(box->focusWidget())->text().remove(QLatin1Char('&')).toStdString();
        box->buttons().first()->click();
    });
    QtPrompt().Show({"Adams Anna will be deleted.", style, "Employee delete", ""});
    return caption;
}

TEST(BoxWithTheStopIcon, changes_nothing_on_enter_or_escape) {
    EXPECT_EQ(Focused(box::YesNo + box::Stop), "No");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        EXPECT_EQ(Pressed(box::YesNo + box::Stop, key), Answer::No) << key;
}

TEST(BoxWithTheStopIcon, goes_back_where_it_can_be_cancelled) {
    EXPECT_EQ(Focused(box::YesNoCancel + box::Stop), "Cancel");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape})
        EXPECT_EQ(Pressed(box::YesNoCancel + box::Stop, key), Answer::Cancel) << key;
}

TEST(BoxOfTwoAnswers, takes_no_escape_for_an_answer_where_nothing_is_at_stake) {
    EXPECT_EQ(Pressed(box::YesNo + box::Question, Qt::Key_Escape), Answer::Yes);
    EXPECT_EQ(Pressed(box::YesNo + box::Question, Qt::Key_Return), Answer::Yes);
}

} // namespace
} // namespace tvx::qt
