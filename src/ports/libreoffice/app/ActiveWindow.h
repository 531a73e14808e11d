// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/document/XDocumentEventBroadcaster.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <memory>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Which of the office's text windows is the active one: the last that the user worked in, also
/// while a dialog of ours has the focus. When it closes, the one before it is. A window that is not
/// shown is never active.
class ActiveWindow {
 public:
    using Frame = com::sun::star::uno::Reference<com::sun::star::frame::XFrame>;
    using Model = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;

    explicit ActiveWindow(const ContextReference& context);
    ActiveWindow(const ActiveWindow&) = delete;
    ActiveWindow& operator=(const ActiveWindow&) = delete;
    ~ActiveWindow();

    /// Nothing when no text window is open.
    Frame frame() const;
    /// The document in it. An error when no text window is open.
    Model model() const;

    /// The user works in this window now.
    void activate(const Frame& frame);

 private:
    class Listener;
    class History;

    std::shared_ptr<History> history_;
    com::sun::star::uno::Reference<com::sun::star::document::XDocumentEventBroadcaster> events_;
    com::sun::star::uno::Reference<com::sun::star::document::XDocumentEventListener> listener_;
};

}  // namespace huebrush::libreoffice
