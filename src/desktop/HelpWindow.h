// The window of the help: its topics, the way back, and a search through all of them.
#pragma once

#include <QDialog>
#include <QList>
#include <QRect>
#include <QUrl>

#include <filesystem>
#include <string>

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QStackedWidget;
class QTextBrowser;
class QToolBar;

namespace tvx::qt {

class HelpWindow : public QDialog {
    Q_OBJECT
  public:
    /// The topics are the pages of that folder; index.html is their list of contents.
    explicit HelpWindow(std::filesystem::path folder);

    /// Shows the page of that name; without it the contents.
    void ShowPage(const std::string& fileName);

  private:
    struct Topic {
        QUrl page;
        QString title;
        QString text;
    };
    QToolBar* MakeBar();
    void FillPages();
    void ReadTopics();
    void AddTopic(const std::filesystem::path& page);
    void Search(const QString& words);
    void OpenFound(const QListWidgetItem* item);

    std::filesystem::path folder_;
    QList<Topic> topics_;
    QLineEdit* search_;
    QStackedWidget* pages_;
    QTextBrowser* page_;
    QListWidget* found_;
};

/// Where a window stands that is not to cover a form: on the side of the form where the screen has more room,
/// as wide as that room lets it be but not below `narrowest`, wholly on the screen. All in pixels.
QRect PlaceBeside(const QRect& form, const QRect& screen, const QSize& wanted, int narrowest);

} // namespace tvx::qt
