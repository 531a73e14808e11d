// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XActionListener.hpp>
#include <com/sun/star/awt/XAdjustmentListener.hpp>
#include <com/sun/star/awt/XItemListener.hpp>
#include <com/sun/star/awt/XMouseListener.hpp>
#include <com/sun/star/awt/XMouseMotionListener.hpp>
#include <com/sun/star/awt/XTextListener.hpp>

#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/libreoffice/window/native/Native.h"

namespace huebrush::libreoffice {

/// Passes what the toolkit reports of a native control on to it, while it lives.
class Native::Listener final
    : public WeakImplHelper<
          com::sun::star::awt::XActionListener, com::sun::star::awt::XItemListener,
          com::sun::star::awt::XAdjustmentListener, com::sun::star::awt::XTextListener,
          com::sun::star::awt::XMouseListener, com::sun::star::awt::XMouseMotionListener> {
 public:
    explicit Listener(Native& native) : native_(&native) {}
    void forget() { native_ = nullptr; }

    void SAL_CALL actionPerformed(const com::sun::star::awt::ActionEvent& event) override {
        if (hears()) native_->acted(event);
    }
    void SAL_CALL itemStateChanged(const com::sun::star::awt::ItemEvent& event) override {
        if (hears()) native_->chosen(event);
    }
    void SAL_CALL
    adjustmentValueChanged(const com::sun::star::awt::AdjustmentEvent& event) override {
        if (hears()) native_->adjusted(event);
    }
    void SAL_CALL textChanged(const com::sun::star::awt::TextEvent&) override {
        if (hears()) native_->typed();
    }
    void SAL_CALL mousePressed(const com::sun::star::awt::MouseEvent& event) override {
        hearMouse(view::MouseInput::Kind::press, event);
    }
    void SAL_CALL mouseReleased(const com::sun::star::awt::MouseEvent& event) override {
        hearMouse(view::MouseInput::Kind::release, event);
    }
    void SAL_CALL mouseDragged(const com::sun::star::awt::MouseEvent& event) override {
        hearMouse(view::MouseInput::Kind::move, event);
    }
    void SAL_CALL mouseMoved(const com::sun::star::awt::MouseEvent& event) override {
        hearMouse(view::MouseInput::Kind::move, event);
    }
    void SAL_CALL mouseEntered(const com::sun::star::awt::MouseEvent&) override {}
    void SAL_CALL mouseExited(const com::sun::star::awt::MouseEvent&) override {}
    void SAL_CALL disposing(const com::sun::star::lang::EventObject&) override {}

 private:
    bool hears() const { return native_ != nullptr && !native_->mirroring_; }
    void hearMouse(view::MouseInput::Kind kind, const com::sun::star::awt::MouseEvent& event) {
        if (native_ != nullptr) native_->heardMouse(kind, event);
    }

    Native* native_;
};

}  // namespace huebrush::libreoffice
