// A list of texts with a number each.
#pragma once

#include <QListWidget>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tvx::qt {

/// A list of texts with a number each. A click and Enter both choose a row. When a click closes the list, the
/// second press of a double click reaches nothing that lies below.
class ListBox : public QListWidget {
    Q_OBJECT
  public:
    explicit ListBox(QWidget* parent = nullptr);

    void Fill(const std::vector<std::pair<std::string, int>>& rows);
    /// The number of the selected row; nothing when none is.
    std::optional<int> ItemData() const;

    std::function<void(int)> onChoose;

    /// What an empty list shows, and is described by: how to begin.
    void SetBeginning(const std::string& text) { beginning_ = text; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void Choose(const QListWidgetItem* item);

    std::string beginning_;
};

} // namespace tvx::qt
