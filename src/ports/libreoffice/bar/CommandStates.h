// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XStatusListener.hpp>
#include <com/sun/star/util/URL.hpp>
#include <map>
#include <string>
#include <vector>

namespace huebrush::libreoffice {

/// Whether each command can be given at the moment, and who shows that: the controls of all the
/// office's windows. A command that nobody has enabled is disabled.
class CommandStates {
 public:
    using Listener = com::sun::star::uno::Reference<com::sun::star::frame::XStatusListener>;

    bool isEnabled(const std::string& command) const;
    /// Notifies the listeners when that changes something.
    void setEnabled(const std::string& command, bool enabled);
    void forget(const std::string& command) { setEnabled(command, false); }

    /// The listener is notified of the command's state at once and whenever it changes.
    void addListener(const com::sun::star::util::URL& url, const Listener& listener);
    void removeListener(const com::sun::star::util::URL& url, const Listener& listener);

 private:
    struct State {
        bool enabled = false;
        std::vector<std::pair<com::sun::star::util::URL, Listener>> listeners;
    };
    static void notify(const com::sun::star::util::URL& url, const Listener& listener,
                       bool enabled);

    std::map<std::string, State> states_;
};

}  // namespace huebrush::libreoffice
