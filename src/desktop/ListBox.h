// A list of texts with a number each.
#pragma once

#include <QListWidget>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tvx::qt {

/// A list of texts with a number each. A click and Enter both choose a row.
class ListBox : public QListWidget {
    Q_OBJECT
  public:
    explicit ListBox(QWidget* parent = nullptr);

    void Fill(const std::vector<std::pair<std::string, int>>& rows);
    /// The number of the selected row; nothing when none is.
    std::optional<int> ItemData() const;

    std::function<void(int)> onChoose;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Choose(const QListWidgetItem* item);
};

} // namespace tvx::qt
