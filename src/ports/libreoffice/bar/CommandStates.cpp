// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/CommandStates.h"

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

bool CommandStates::isEnabled(const std::string& command) const {
    const auto state = states_.find(command);
    return state != states_.end() && state->second.enabled;
}

void CommandStates::setEnabled(const std::string& command, bool enabled) {
    State& state = states_[command];
    if (state.enabled == enabled) return;
    state.enabled = enabled;
    // A copy, because a listener may add or remove listeners.
    const auto listeners = state.listeners;
    for (const auto& [url, listener] : listeners) notify(url, listener, enabled);
}

void CommandStates::addListener(const css::util::URL& url, const Listener& listener) {
    const std::string command = fromOffice(url.Complete);
    states_[command].listeners.emplace_back(url, listener);
    notify(url, listener, isEnabled(command));
}

void CommandStates::removeListener(const css::util::URL& url, const Listener& listener) {
    std::erase_if(states_[fromOffice(url.Complete)].listeners,
                  [&](const auto& known) { return known.second == listener; });
}

void CommandStates::notify(const css::util::URL& url, const Listener& listener, bool enabled) {
    css::frame::FeatureStateEvent event;
    event.FeatureURL = url;
    event.IsEnabled = enabled;
    event.Requery = sal_False;
    ignoringOffice([&] { listener->statusChanged(event); });
}

}  // namespace huebrush::libreoffice
