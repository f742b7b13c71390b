// What tests of a form share: a store with its state and ports, the form over them, and how a test finds its
// way about it.
#pragma once

#include "support/Screens.h"
#include "support/TestStore.h"
#include "support/Usability.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tvx::test {

template <typename Made>
class FormFixture : public testing::Test {
  protected:
    TestStore store;
    GlobalState& g = store.g;
    std::unique_ptr<Made> form;

    /// Opens the form for a request, as the active window.
    template <typename Request>
    Made& OpenFor(const Request& request) {
        form = std::make_unique<Made>(g, store.ports(), request, nullptr);
        form->ShowModeless();
        QApplication::processEvents();
        return *form;
    }
    template <typename Control = QWidget>
    Control& Get(const std::string& name) {
        return Find<Control>(*form, name);
    }
    qt::TextBox& Box(const std::string& name) { return Get<qt::TextBox>(name); }
    qt::ListBox& List() { return Get<qt::ListBox>("List1"); }
    bool Shown(const std::string& name) { return Get(name).isVisible(); }
    bool Enabled(const std::string& name) { return Get(name).isEnabled(); }
    bool Chosen(const std::string& option) { return Get<QAbstractButton>(option).isChecked(); }
    std::string Title() const { return form->windowTitle().toStdString(); }
    std::string TextOf(const std::string& label) { return Get<qt::Label>(label).text().toStdString(); }
    std::string TitleOf(const std::string& frame) { return Get<qt::Frame>(frame).title().toStdString(); }
    std::string Caption(const std::string& button) {
        return Get<QAbstractButton>(button).text().toStdString();
    }
    std::vector<std::string> Listed() {
        std::vector<std::string> rows;
        for (int i = 0; i < List().count(); ++i) rows.push_back(List().item(i)->text().toStdString());
        return rows;
    }
    void ClickRow(int row) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier,
                          List().visualItemRect(List().item(row)).center());
    }
    /// Types a text into a box in place of what it holds.
    void Retype(qt::TextBox& box, const std::string& text) {
        box.setFocus();
        box.selectAll();
        Press(*form, Qt::Key_Delete);
        TypeAny(box, text);
    }
    /// Nothing is in the way of a person without a mouse or without eyes, and the Tab key goes so.
    void ExpectUsable(const std::vector<std::string>& order) {
        EXPECT_EQ(Obstacles(*form), "");
        EXPECT_EQ(CutTexts(*form), "");
        EXPECT_EQ(TabOrder(*form), order);
    }
};

} // namespace tvx::test
