#include "desktop/Application.h"

#include <QEvent>
#include <QTimer>

#include <algorithm>
#include <stdexcept>

namespace tvx::qt {
namespace {

/// What a person does, rather than what comes by itself.
bool IsDeed(QEvent::Type event) {
    switch (event) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
    if (!tell_) return QApplication::notify(receiver, event);
    const QEvent::Type type = event->type();
    try {
        const bool taken = QApplication::notify(receiver, event);
        if (!told_.empty()) Forget(receiver, type);
        return taken;
    } catch (const std::exception& trouble) {
        Catch(receiver, event, trouble);
    } catch (...) {
        Catch(receiver, event, std::runtime_error("Something went wrong, and nothing tells what."));
    }
    return true;
}

void Application::Catch(const QObject* receiver, QEvent* event, const std::exception& trouble) {
    if (event->type() == QEvent::Close) event->ignore();
    if (IsDeed(event->type()))
        tell_(trouble);
    else
        TellOnce({receiver, event->type(), trouble.what()});
}

/// A box may not open in the middle of a paint: it waits until the event is over.
void Application::TellOnce(Told what) {
    if (std::find(told_.begin(), told_.end(), what) != told_.end()) return;
    told_.push_back(std::move(what));
    QTimer::singleShot(0, this, [this, trouble = std::current_exception()] {
        try {
            std::rethrow_exception(trouble);
        } catch (const std::exception& known) {
            tell_(known);
        } catch (...) {
            tell_(std::runtime_error("Something went wrong, and nothing tells what."));
        }
    });
}

void Application::Forget(const QObject* receiver, QEvent::Type event) {
    std::erase_if(told_, [&](const Told& told) { return told.receiver == receiver && told.event == event; });
}

} // namespace tvx::qt
