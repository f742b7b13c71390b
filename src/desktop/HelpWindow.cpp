#include "desktop/HelpWindow.h"

#include "desktop/Scale.h"
#include "platform/files/Folder.h"

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace fs = std::filesystem;

namespace tvx::qt {
namespace {

constexpr int LongestSnippet = 120; // characters

QUrl UrlOf(const fs::path& page) {
    return QUrl::fromLocalFile(QString::fromStdU16String(page.u16string()));
}

QStringList WordsOf(const QString& text) {
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool HoldsAll(const QString& text, const QStringList& words) {
    return std::all_of(words.begin(), words.end(),
                       [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

/// The first paragraph that has one of the words, cut where it is too long for a line.
QString SnippetOf(const QString& text, const QStringList& words) {
    for (const QString& paragraph : text.split(QLatin1Char('\n')))
        for (const QString& word : words) {
            const qsizetype at = paragraph.indexOf(word, 0, Qt::CaseInsensitive);
            if (at < 0) continue;
            const qsizetype begin = at < LongestSnippet / 2 ? 0 : paragraph.lastIndexOf(QLatin1Char(' '), at);
            return (begin > 0 ? QStringLiteral("…") : QString()) + paragraph.mid(begin, LongestSnippet);
        }
    return {};
}

} // namespace

HelpWindow::HelpWindow(fs::path folder)
    : folder_(std::move(folder)), search_(new QLineEdit), pages_(new QStackedWidget), page_(new QTextBrowser),
      found_(new QListWidget) {
    setObjectName(QStringLiteral("Tvxhelp"));
    setWindowTitle(QStringLiteral("Tarvex help"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(MakeBar());
    column->addWidget(pages_);
    FillPages();
    ReadTopics();
}

QToolBar* HelpWindow::MakeBar() {
    auto* bar = new QToolBar;
    bar->addAction(QStringLiteral("&Contents"), this, [this] { ShowPage("index.html"); });
    QAction* back = bar->addAction(QStringLiteral("&Back"), page_, &QTextBrowser::backward);
    back->setEnabled(false);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    for (QAction* action : bar->actions()) bar->widgetForAction(action)->setFocusPolicy(Qt::StrongFocus);
    search_->setPlaceholderText(QStringLiteral("Search the help"));
    search_->setAccessibleName(QStringLiteral("Search the help"));
    search_->setClearButtonEnabled(true);
    bar->addWidget(search_);
    connect(search_, &QLineEdit::textChanged, this, &HelpWindow::Search);
    connect(search_, &QLineEdit::returnPressed, this, [this] { OpenFound(found_->item(0)); });
    return bar;
}

void HelpWindow::FillPages() {
    page_->setAccessibleName(QStringLiteral("Help topic"));
    page_->setOpenExternalLinks(false);
    page_->document()->setDocumentMargin(Pixels(180));
    found_->setAccessibleName(QStringLiteral("Topics found"));
    found_->setWordWrap(true);
    pages_->addWidget(page_);
    pages_->addWidget(found_);
    connect(page_, &QTextBrowser::sourceChanged, this, [this] { pages_->setCurrentWidget(page_); });
    connect(found_, &QListWidget::itemActivated, this, &HelpWindow::OpenFound);
    connect(found_, &QListWidget::itemClicked, this, &HelpWindow::OpenFound);
}

void HelpWindow::ReadTopics() {
    std::error_code unreadable;
    for (fs::directory_iterator it(folder_, unreadable), end; !unreadable && it != end;
         it.increment(unreadable))
        if (it->path().extension() == ".html" && it->path().stem() != "index") AddTopic(it->path());
    std::sort(topics_.begin(), topics_.end(),
              [](const Topic& a, const Topic& b) { return a.title.localeAwareCompare(b.title) < 0; });
}

void HelpWindow::AddTopic(const fs::path& page) {
    QTextBrowser reader;
    reader.setSource(UrlOf(page));
    const QString text = reader.toPlainText();
    const QString title = reader.documentTitle();
    topics_.append({UrlOf(page), title.isEmpty() ? text.section(QLatin1Char('\n'), 0, 0) : title, text});
}

void HelpWindow::ShowPage(const std::string& fileName) {
    auto page = FindFile(folder_, fileName);
    if (!page) page = FindFile(folder_, "index.html");
    search_->clear();
    pages_->setCurrentWidget(page_);
    page_->setSource(page ? UrlOf(*page) : QUrl());
    page_->setFocus();
}

void HelpWindow::Search(const QString& text) {
    const QStringList words = WordsOf(text);
    found_->clear();
    pages_->setCurrentWidget(words.isEmpty() ? static_cast<QWidget*>(page_) : found_);
    if (words.isEmpty()) return;
    for (const Topic& topic : topics_) {
        if (!HoldsAll(topic.text, words)) continue;
        auto* item =
            new QListWidgetItem(topic.title + QLatin1Char('\n') + SnippetOf(topic.text, words), found_);
        item->setData(Qt::UserRole, topic.page);
    }
    if (found_->count() > 0) return;
    auto* nothing = new QListWidgetItem(QStringLiteral("No topic has these words."), found_);
    nothing->setFlags(Qt::NoItemFlags);
}

/// Opens the topic at the first of the words that were looked for.
void HelpWindow::OpenFound(const QListWidgetItem* item) {
    if (item == nullptr || !item->data(Qt::UserRole).isValid()) return;
    const QUrl page = item->data(Qt::UserRole).toUrl();
    const QStringList words = WordsOf(search_->text());
    page_->setSource(page);
    pages_->setCurrentWidget(page_);
    page_->moveCursor(QTextCursor::Start);
    page_->find(words.value(0));
    page_->setFocus();
}

QRect PlaceBeside(const QRect& form, const QRect& screen, const QSize& wanted, int narrowest) {
    const int roomAtLeft = form.left() - screen.left();
    const int roomAtRight = screen.right() - form.right();
    const bool atRight = roomAtRight >= roomAtLeft;
    const int room = std::max(roomAtLeft, roomAtRight);
    const QSize size(std::min(std::max(std::min(wanted.width(), room), narrowest), screen.width()),
                     std::min(wanted.height(), screen.height()));
    const int left = atRight ? form.right() + 1 : form.left() - size.width();
    const auto within = [](int value, int least, int most) { return std::max(least, std::min(value, most)); };
    return {QPoint(within(left, screen.left(), screen.right() + 1 - size.width()),
                   within(form.top(), screen.top(), screen.bottom() + 1 - size.height())),
            size};
}

} // namespace tvx::qt
