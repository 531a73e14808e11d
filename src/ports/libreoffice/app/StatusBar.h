// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/task/XStatusIndicator.hpp>
#include <memory>
#include <string>

#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/app/RateLimit.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

class Snapshot;

/// The status text of the active window. A text stays until the user goes on working in the
/// document, with a key or a click, as any message of the office does.
///
/// Texts may come in thousands: they are shown at a bounded rate, the first at once and the last no
/// later than when the event loop is reached.
class StatusBar {
 public:
    StatusBar(const ContextReference& context, const ActiveWindow& window,
              std::shared_ptr<Snapshot> snapshot);
    StatusBar(const StatusBar&) = delete;
    StatusBar& operator=(const StatusBar&) = delete;
    ~StatusBar();

    /// Does nothing where no window is open. Showing a text lets events run.
    void setText(const std::string& text);

 private:
    class Message;

    std::shared_ptr<Message> message_;
};

}  // namespace huebrush::libreoffice
