// The preview of a document: one page at a time, moved with the mouse, zoomed with a double click.
#pragma once

#include "reports/page/VpDocument.h"

#include <QWidget>

#include <functional>

namespace tvx::qt {

class Preview : public QWidget {
    Q_OBJECT
  public:
    explicit Preview(QWidget* parent = nullptr);

    /// Shows a document that was drawn anew; stays on the page where it can.
    void Show(const VpDocument& document);
    int PageNumber() const { return page_; }
    void GoToPage(int page);
    bool IsZoomed() const { return zoomed_; }
    /// Does what a key asks for: pages, zoom, moving. False for any other key.
    bool Key(int key);

    /// The page shown has changed.
    std::function<void()> onPage;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    double Scale() const; // pixels to a twip
    QSizeF SheetSize() const;
    void KeepInside();
    void Zoom(QPointF at);
    void Move(QPointF by);

    const VpDocument* document_ = nullptr;
    int page_ = 1;
    bool zoomed_ = false;
    QPointF offset_; // of the sheet's top left, pixels
    QPointF grabbed_;
    int turned_ = 0; // of the wheel since the last page, eighths of a degree
};

} // namespace tvx::qt
