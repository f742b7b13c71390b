#include "masterdata/screens/EmployeeSearchForm.h"

#include <QAbstractListModel>
#include <QPainter>
#include <QStyledItemDelegate>

namespace tvx::qt {
namespace {

constexpr Twips NameColumn = 2100;
constexpr Twips IdColumn = 1200;

/// The rows of the search as a list that is read where it is shown.
class FoundModel : public QAbstractListModel {
  public:
    FoundModel(const std::vector<FoundEmployee>& rows, QObject* parent)
        : QAbstractListModel(parent), rows_(rows) {}
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
        return ToQString(rows_[static_cast<std::size_t>(index.row())].Text());
    }

  private:
    const std::vector<FoundEmployee>& rows_;
};

/// Measures texts that are padded with blanks one after the other: what stands before the blanks is measured
/// once, which is what counts in a long list.
class PaddedWidth {
  public:
    explicit PaddedWidth(const QFontMetrics& metrics)
        : metrics_(metrics), blank_(metrics.horizontalAdvance(QLatin1Char(' '))) {}
    Twips operator()(const std::string& text) {
        const std::size_t length = text.find_last_not_of(' ') + 1; // 0 when all are blanks
        if (text.compare(0, length, measured_) != 0) {
            measured_ = text.substr(0, length);
            width_ = metrics_.horizontalAdvance(ToQString(measured_));
        }
        return ToTwips(width_ + blank_ * static_cast<int>(text.size() - length));
    }

  private:
    QFontMetrics metrics_;
    int blank_;
    std::string measured_;
    int width_ = 0;
};

/// Draws the parts of a row in columns.
class ColumnDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem ground = option;
        initStyleOption(&ground, index);
        const QStringList parts = ground.text.split(QLatin1Char('\t'));
        ground.text.clear();
        ground.widget->style()->drawControl(QStyle::CE_ItemViewItem, &ground, painter, ground.widget);
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        int x = option.rect.left() + 4;
        const int widths[] = {Pixels(NameColumn), Pixels(IdColumn), option.rect.width()};
        for (qsizetype i = 0; i < parts.size() && i < 3; ++i) {
            const QRect place(x, option.rect.top(), widths[i] - 6, option.rect.height());
            painter->drawText(
                place, Qt::AlignVCenter,
                option.fontMetrics.elidedText(parts[i].trimmed(), Qt::ElideRight, place.width()));
            x += widths[i];
        }
    }
};

} // namespace

EmployeeSearchForm::EmployeeSearchForm(const GlobalState& g, Ports& ports, const SearchRequest& request,
                                       Form* owner)
    : Form(ports, "Form5", owner), g_(g) {
    setWindowTitle(ToQString(SearchTitle(g_.department, request.command)));
    Build();
    FixSize(5400, 6000);
    Text1->setFocus();
}

bool EmployeeSearchForm::Opened() {
    Fill();
    return true;
}

void EmployeeSearchForm::Build() {
    QVBoxLayout& column = Column();
    column.setSpacing(-1); // the style's: a list stands close to what narrows it
    AddLabel("Label1", "Enter all or part of last name", column);
    Text1 = &Add<TextBox>("Text1", "All or part of last name");
    column.addWidget(Text1);
    List1 = &Add<QListView>("List1", g_.department.EmployeeNamePlural);
    List1->setUniformItemSizes(true);
    List1->setItemDelegate(new ColumnDelegate(List1));
    List1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    column.addWidget(List1, 1);
    AddCommands(column, {},
                {{"Command3D1", "&OK", [this] { Pick(); }, Role::Default},
                 {"Command3D2", "&Cancel", [this] { Unload(); }, Role::Cancel}});
    On(*Text1, &QLineEdit::textChanged, [this](const QString&) { Search(); });
    Text1->onEnter = Guarded([this] { Pick(); });
    Text1->onVerticalArrow = [this](int direction) { Select(List1->currentIndex().row() + direction); };
    On(*List1, &QListView::doubleClicked, [this](const QModelIndex&) { Pick(); });
}

void EmployeeSearchForm::Fill() {
    PaddedWidth widthOf(List1->fontMetrics());
    rows_ = FindEmployees(g_.store, g_.department, [&](const std::string& text) { return widthOf(text); });
    List1->setModel(new FoundModel(rows_, List1));
    Select(0);
}

void EmployeeSearchForm::Select(int row) {
    if (row < 0 || row >= static_cast<int>(rows_.size())) return;
    List1->setCurrentIndex(List1->model()->index(row, 0));
}

void EmployeeSearchForm::Search() {
    const int row = FirstMatch(rows_, Text1->Text());
    Select(row);
    const bool missing = row < 0 && !rows_.empty();
    Text1->Mark(missing ? "No last name begins with this." : "");
}

void EmployeeSearchForm::Pick() {
    if (rows_.empty()) {
        const std::string& many = g_.department.EmployeeNamePlural;
        ports_.prompt.Beep();
        ports_.prompt.MsgBox("Department has no " + many + " entered!", box::Ok, "No " + many);
    } else {
        const int row = std::max(0, List1->currentIndex().row());
        picked_ = rows_[static_cast<std::size_t>(row)].key;
    }
    Unload();
}

} // namespace tvx::qt
