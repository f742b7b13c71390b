// One way for a form to open another, for all rooms: by a request, answered when the other form has gone.
#pragma once

#include <any>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <typeindex>

namespace tvx::qt {

class Form;

/// A request is a struct of the logic room whose screen it opens, and names its answer:
///     struct SearchRequest { using Answer = SearchAnswer; ... };
/// The screen that opens includes that, and knows nothing of the one that is opened.
class Screens {
  public:
    /// Shows what a request asks for over a form, and answers when it has gone.
    template <typename Request>
    using Screen = std::function<typename Request::Answer(const Request&, Form&)>;

    /// Says how a kind of request is answered; a later word replaces an earlier one.
    template <typename Request>
    void Register(Screen<Request> screen) {
        screens_[typeid(Request)] = std::move(screen);
    }
    /// Throws std::logic_error when nobody has registered the kind of request.
    template <typename Request>
    typename Request::Answer Open(const Request& request, Form& owner) const {
        const auto found = screens_.find(typeid(Request));
        if (found == screens_.end())
            throw std::logic_error(std::string("no screen answers ") + typeid(Request).name());
        return std::any_cast<const Screen<Request>&>(found->second)(request, owner);
    }

  private:
    std::map<std::type_index, std::any> screens_; // by kind of request, a Screen of it
};

} // namespace tvx::qt
