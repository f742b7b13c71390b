// The application of a run, and the net under everything that it runs.
#pragma once

#include <QApplication>

#include <exception>
#include <functional>
#include <string>
#include <vector>

namespace tvx::qt {

/// An error that escapes a handler, a paint or a callback is told and ends that action only; a window that
/// was to close stays. What a person did is told of each time. What comes by itself, a paint, a timer, a move
/// of the mouse, is told of once until the same has gone well, or it would bring one box after the other.
class Application : public QApplication {
  public:
    Application(int& count, char** arguments) : QApplication(count, arguments) {}

    /// How errors are shown. Until this is called they pass through.
    void TellBy(std::function<void(const std::exception&)> tell) { tell_ = std::move(tell); }

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    /// An error that comes again and again.
    struct Told {
        const QObject* receiver = nullptr; // only compared
        QEvent::Type event = QEvent::None;
        std::string text;

        friend bool operator==(const Told&, const Told&) = default;
    };
    void Catch(const QObject* receiver, QEvent* event, const std::exception& trouble);
    void TellOnce(Told what);
    void Forget(const QObject* receiver, QEvent::Type event);

    std::function<void(const std::exception&)> tell_;
    std::vector<Told> told_;
};

} // namespace tvx::qt
