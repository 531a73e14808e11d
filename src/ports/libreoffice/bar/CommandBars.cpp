// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/CommandBars.h"

#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/MainThread.h"

namespace huebrush::libreoffice {

namespace {

/// What the URLs of bars that are not the office's own begin with.
constexpr std::string_view kOwnBars = "private:resource/toolbar/custom_";

}  // namespace

/// Ties a write pending in the event loop to the bars, which may be gone by then.
class CommandBars::PendingWrite {
 public:
    explicit PendingWrite(CommandBars& bars) : bars_(bars) {}

    bool posted() const { return posted_; }
    void post(const std::shared_ptr<PendingWrite>& self) {
        posted_ = true;
        postToMainThread(bars_.office_.context, [weak = std::weak_ptr(self)] {
            if (const auto pending = weak.lock()) pending->run();
        });
    }

 private:
    void run() {
        posted_ = false;
        bars_.write();
    }

    CommandBars& bars_;
    bool posted_ = false;
};

CommandBars::CommandBars(const ContextReference& context, IconFiles icons)
    : office_{context, Faces(context, std::move(icons))},
      pendingWrite_(std::make_shared<PendingWrite>(*this)) {}

CommandBars::~CommandBars() = default;

std::int32_t CommandBars::Count() {
    return static_cast<std::int32_t>(office_.configuration.bars().size());
}

host::CommandBarPointer CommandBars::Item(std::int32_t index) {
    const std::vector<BarConfiguration::Bar> bars = office_.configuration.bars();
    if (index < 1 || std::cmp_greater(index, bars.size())) {
        throw base::Error(base::ErrorNumber::kSubscriptOutOfRange,
                          "Panel nástrojů s tímto pořadím neexistuje.");
    }
    return barOf(bars[static_cast<std::size_t>(index - 1)]);
}

host::CommandBarPointer CommandBars::Add(const std::string& name) {
    const BarConfiguration::Bar bar = insertBar(name);
    BarPlace place = office_.places.of(bar.url);
    place.visible = false;
    office_.places.put(bar.url, bar.name, place);
    office_.notes.setCreatedByUs(bar.url, true);
    return barOf(bar);
}

void CommandBars::removeLeftBehind() {
    write();
    for (const BarConfiguration::Bar& known : office_.configuration.bars()) {
        if (!known.url.starts_with(kOwnBars)) continue;
        const std::shared_ptr<ToolBar> bar = barOf(known);
        if (bar->isLeftBehind()) bar->Delete();
    }
    save();
}

void CommandBars::save() {
    write();
    office_.configuration.store();
}

void CommandBars::click(const std::string& command) {
    if (!office_.states.isEnabled(command)) return;
    for (const auto& [url, bar] : bars_) {
        if (const auto button = bar->buttonOf(command)) {
            button->Click();
            return;
        }
    }
}

std::shared_ptr<ToolBar> CommandBars::barOf(const BarConfiguration::Bar& bar) {
    std::shared_ptr<ToolBar>& known = bars_[bar.url];
    if (known == nullptr) {
        known = std::make_shared<ToolBar>(office_, bar, [this] { writeSoon(); });
    }
    return known;
}

/// The office silently refuses a bar under a URL that was removed in the same session.
BarConfiguration::Bar CommandBars::insertBar(const std::string& name) {
    constexpr int kAttempts = 100;
    const std::string first = base::text(kOwnBars, base::percentEncoded(name));
    BarConfiguration::Bar bar{first, name};
    for (int number = 2; number <= kAttempts; ++number) {
        if (!office_.configuration.has(bar.url)) {
            office_.configuration.insert(bar);
            if (office_.configuration.has(bar.url)) return bar;
        }
        bar.url = base::text(first, "_", number);
    }
    throw base::Error(HostErrorNumber::kCommandFailed,
                      "Kancelářský balík nepřijal nový panel nástrojů.");
}

void CommandBars::write() {
    for (const auto& [url, bar] : bars_) bar->write();
    std::erase_if(bars_, [](const auto& known) { return known.second->deleted(); });
}

void CommandBars::writeSoon() {
    if (!pendingWrite_->posted()) pendingWrite_->post(pendingWrite_);
}

}  // namespace huebrush::libreoffice
