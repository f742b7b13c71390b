#include "masterdata/screens/ListForm.h"

namespace tvx::qt {

bool ListForm::MayPick(int index) const {
    return index > 0;
}

void ListForm::BuildList(QVBoxLayout& column, const char* taskName, const std::string& accessible,
                         const std::string& beginning) {
    task_ = &AddLabel(taskName, "", column);
    List1 = &Add<ListBox>("List1", accessible);
    List1->SetBeginning(beginning);
    List1->onChoose = Guarded([this](int index) { TakeRow(index); });
    column.addWidget(List1, 1000); // all the room while it shows
}

QPushButton& ListForm::AddTask(const char* name, const char* caption, ListRequest task, QBoxLayout& row,
                               QWidget& frame) {
    return AddCommand({name, caption, [=, this] { Enter(task); }}, row, &frame);
}

void ListForm::BuildCommands(QVBoxLayout& column, const CommandNames& names) {
    QHBoxLayout& row = Row(column);
    other_ = &AddCommand({names.other, "&Other activity...", [this] { ShowMenu(); }}, row);
    row.addStretch();
    save_ = &AddCommand({names.save, "&Save", [this] { SaveOrDelete(); }}, row);
    QPushButton& close = AddCommand({names.close, "&Close", [this] { Unload(); }, Role::Cancel}, row);
    // Last of all: behind a box that was filled comes what keeps it, not what throws it away.
    setTabOrder(save_, &close);
    setTabOrder(&close, other_);
}

void ListForm::Enter(ListRequest task) {
    doing_ = task;
    taken_ = 0;
    EmptyBoxes();
    for (TextBox* box : boxes_) box->setReadOnly(false); // the one to be deleted was only shown
    save_->setText(task == ListRequest::Delete ? QStringLiteral("&Delete") : QStringLiteral("&Save"));
    pages_.Show(task == ListRequest::Add ? Page::Add : task == ListRequest::Drop ? Page::Drop : Page::List);
    Announce(task);
    if (task == ListRequest::Add)
        boxes_.front()->setFocus();
    else
        ShowList();
}

void ListForm::ShowList() {
    List1->Fill(Rows());
    if (List1->count() > 0) List1->setCurrentRow(0);
    List1->setFocus();
}

void ListForm::TakeRow(int index) {
    if (doing_ == ListRequest::Drop) {
        if (!MayPick(index)) return;
        picked_ = index;
        return Unload();
    }
    taken_ = index;
    FillBoxes(index);
    pages_.Show(Page::Taken);
    const bool deleting = doing_ == ListRequest::Delete;
    AnnounceTaken(deleting);
    for (TextBox* box : boxes_) box->setReadOnly(deleting);
    if (deleting)
        save_->setFocus();
    else
        boxes_.front()->setFocus();
}

void ListForm::EmptyBoxes() {
    for (TextBox* box : boxes_) box->clear();
}

void ListForm::SaveOrDelete() {
    if (doing_ != ListRequest::Drop && Settle()) Follow(Save(doing_, taken_));
}

void ListForm::Follow(SaveResult result) {
    if (result == SaveResult::InUse) boxes_.front()->clear();
    if (result == SaveResult::InUse) boxes_.front()->setFocus();
    if (result != SaveResult::Saved) return;
    if (doing_ != ListRequest::Add || !AwaitsAnother()) return Unload();
    EmptyBoxes();
    Announce(doing_);
    boxes_.front()->setFocus();
}

} // namespace tvx::qt
