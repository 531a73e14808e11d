// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/app/StatusBar.h"

#include <com/sun/star/awt/XKeyHandler.hpp>
#include <com/sun/star/awt/XMouseClickHandler.hpp>
#include <com/sun/star/awt/XUserInputInterception.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/task/XStatusIndicatorFactory.hpp>
#include <optional>
#include <rtl/ref.hxx>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/uno/Snapshot.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

constexpr std::chrono::milliseconds kShowEvery(50);

/// Calls back at the user's first key press or click in a document, and lets either pass.
class InputListener : public WeakImplHelper<css::awt::XKeyHandler, css::awt::XMouseClickHandler> {
 public:
    explicit InputListener(std::function<void()> onInput) : onInput_(std::move(onInput)) {}

    sal_Bool SAL_CALL keyPressed(const css::awt::KeyEvent&) override { return hear(); }
    sal_Bool SAL_CALL keyReleased(const css::awt::KeyEvent&) override { return sal_False; }
    sal_Bool SAL_CALL mousePressed(const css::awt::MouseEvent&) override { return hear(); }
    sal_Bool SAL_CALL mouseReleased(const css::awt::MouseEvent&) override { return sal_False; }
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

 private:
    sal_Bool hear() {
        onInput_();
        return sal_False;
    }

    std::function<void()> onInput_;
};

/// The status indicator of one window, shown from the first text until its end.
class Indicator {
 public:
    Indicator(const ActiveWindow::Frame& frame, const std::function<void()>& userGoesOn)
        : frame_(frame), input_(new InputListener(userGoesOn)) {
        const css::uno::Reference<css::task::XStatusIndicatorFactory> factory(
            frame_, css::uno::UNO_QUERY_THROW);
        indicator_ = factory->createStatusIndicator();
        interception_.set(frame_->getController(), css::uno::UNO_QUERY);
        if (interception_.is()) {
            interception_->addKeyHandler(input_.get());
            interception_->addMouseClickHandler(input_.get());
        }
    }
    Indicator(const Indicator&) = delete;
    Indicator& operator=(const Indicator&) = delete;
    ~Indicator() {
        ignoringOffice([&] {
            if (interception_.is()) {
                interception_->removeKeyHandler(input_.get());
                interception_->removeMouseClickHandler(input_.get());
            }
        });
        ignoringOffice([&] { indicator_->end(); });
    }

    const ActiveWindow::Frame& frame() const { return frame_; }

    void show(const std::string& text) {
        const bool first = !std::exchange(started_, true);
        if (first) indicator_->start(toOffice(text), 0);
        if (!first) indicator_->setText(toOffice(text));
    }

 private:
    ActiveWindow::Frame frame_;
    rtl::Reference<InputListener> input_;
    css::uno::Reference<css::task::XStatusIndicator> indicator_;
    css::uno::Reference<css::awt::XUserInputInterception> interception_;
    bool started_ = false;
};

}  // namespace

/// The text to show and the indicator that shows it. Callbacks pending in the event loop hold it
/// weakly, so that they may outlive the status bar.
class StatusBar::Message : public std::enable_shared_from_this<Message> {
 public:
    Message(const ContextReference& context, const ActiveWindow& window,
            std::shared_ptr<Snapshot> snapshot)
        : context_(context), window_(window), snapshot_(std::move(snapshot)) {}

    void setText(const std::string& text) {
        pending_ = text;
        if (rate_.isDue()) {
            show();
        } else if (!std::exchange(showIsPosted_, true)) {
            post([](Message& message) {
                message.showIsPosted_ = false;
                message.show();
            });
        }
    }

 private:
    /// Shows the pending text, if there is one.
    void show() {
        if (!pending_) return;
        const std::string text = *std::exchange(pending_, std::nullopt);
        const auto start = RateLimit::Clock::now();
        snapshot_->invalidate();
        ignoringOffice([&] { showInActiveWindow(text); });
        snapshot_->invalidate();
        rate_.done(start);
    }

    void showInActiveWindow(const std::string& text) {
        const ActiveWindow::Frame frame = window_.frame();
        if (indicator_ != nullptr && indicator_->frame() != frame) indicator_.reset();
        if (!frame.is()) return;
        if (indicator_ == nullptr) {
            indicator_ = std::make_shared<Indicator>(frame, [weak = weak_from_this()] {
                if (const auto message = weak.lock()) message->clearSoon();
            });
        }
        // Held here, because showing lets events run that may drop it.
        const std::shared_ptr<Indicator> indicator = indicator_;
        indicator->show(text);
    }

    void clearSoon() {
        post([](Message& message) { message.indicator_.reset(); });
    }

    void post(void (*work)(Message&)) {
        postToMainThread(context_, [weak = weak_from_this(), work] {
            if (const auto message = weak.lock()) work(*message);
        });
    }

    ContextReference context_;
    const ActiveWindow& window_;
    std::shared_ptr<Snapshot> snapshot_;
    std::shared_ptr<Indicator> indicator_;
    std::optional<std::string> pending_;
    bool showIsPosted_ = false;
    RateLimit rate_{kShowEvery};
};

StatusBar::StatusBar(const ContextReference& context, const ActiveWindow& window,
                     std::shared_ptr<Snapshot> snapshot)
    : message_(std::make_shared<Message>(context, window, std::move(snapshot))) {}

StatusBar::~StatusBar() = default;

void StatusBar::setText(const std::string& text) {
    message_->setText(text);
}

}  // namespace huebrush::libreoffice
