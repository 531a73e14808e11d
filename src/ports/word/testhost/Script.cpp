// SPDX-License-Identifier: MPL-2.0

#include "ports/word/testhost/Script.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "base/Text.h"

namespace huebrush::word {

namespace {

using base::text;

constexpr const char* kBar = "Huebrush";

/// A text in two, without the sign between them; the second is empty where the sign is missing.
std::pair<std::string, std::string> split(const std::string& whole, char sign) {
    const std::size_t at = whole.find(sign);
    if (at == std::string::npos) return {whole, {}};
    return {whole.substr(0, at), whole.substr(at + 1)};
}

/// One play, and how many calls it led to.
std::pair<std::vector<std::string>, std::size_t> playOnce(const Steps& steps, const MakeAddIn& make,
                                                          std::size_t failAt) {
    memory::TestHost host;
    const std::unique_ptr<ScriptedAddIn> addIn = make(host);
    Script script(host, *addIn);
    script.objects().failAt = failAt;
    script.run(steps);
    return {script.lines(), script.objects().calls};
}

}  // namespace

std::vector<std::string> play(const Steps& steps, const MakeAddIn& make, std::size_t failAt) {
    return playOnce(steps, make, failAt).first;
}

std::vector<std::string> playEachFailure(const Steps& steps, const MakeAddIn& make) {
    std::vector<std::string> all;
    const std::size_t calls = playOnce(steps, make, 0).second;
    for (std::size_t failing = 1; failing <= calls; ++failing) {
        all.push_back(text("call ", failing, " fails"));
        for (std::string& line : play(steps, make, failing)) all.push_back(std::move(line));
    }
    return all;
}

std::string describeBox(const std::string& title, const std::string& text,
                        const std::vector<int>& buttons) {
    std::string line = base::text("box [", title, "] ");
    for (const char character : text) {
        if (character == '\n') line += '|';
        if (character != '\n' && character != '\r') line += character;
    }
    for (const int button : buttons) line += base::text(" <", button, ">");
    return line;
}

Script::Script(memory::TestHost& host, ScriptedAddIn& addIn)
    : host_(host), standIn_(host.application), addIn_(addIn) {
    host.document->addSolid("Slunce", 1);
    host.document->addSolid("Obloha", 2);
    host.document->addSolid("Měsíc", 1);
    host.document->select({host.document->shapes[0]});
}

void Script::run(const std::vector<std::string>& steps) {
    for (const std::string& each : steps) step(each);
}

void Script::step(const std::string& step) {
    lines_.push_back(text("> ", step));
    const auto [verb, value] = split(step, '=');
    act(verb, value);
    noteCalls();
    for (const std::string& box : addIn_.takeBoxes()) lines_.push_back(box);
}

void Script::act(const std::string& verb, const std::string& value) {
    memory::MemoryApplication& application = host_.application;
    if (verb == "name") {
        application.name = value;
    } else if (verb == "version") {
        application.version = value;
    } else if (verb == "setting") {
        const auto [section, rest] = split(value, '/');
        const auto [key, setting] = split(rest, '=');
        addIn_.settings().SaveSetting(kBar, section, key, setting);
    } else if (verb == "bar") {
        application.bars.addExisting("Standard");
        application.bars.addExisting(kBar);
    } else if (verb == "button") {
        const auto bar = application.bars.find(kBar);
        bar->buttons.push_back(std::make_shared<memory::MemoryButton>(*bar, "Kept"));
        bar->buttons.back()->tag = value;
    } else if (verb == "fail") {
        objects().failAt = objects().calls + static_cast<std::size_t>(std::stoul(value));
    } else if (verb == "connect") {
        addIn_.connect(standIn_.application());
    } else if (verb == "disconnect") {
        disconnect();
    } else if (verb == "leave") {
        addIn_.disconnectInNextBox();
    } else if (verb == "click") {
        click(value);
    } else if (verb == "select") {
        select(value);
    } else if (verb == "shapes") {
        replaceShapes(value);
    } else if (verb == "tool") {
        const auto [id, color] = split(value, '/');
        application.tools[std::stoi(id)] = [painted =
                                                std::stoi(color)](memory::MemoryShape& shape) {
            shape.fill.ForeColorRGB = painted;
            return host::DialogResult::kConfirmed;
        };
    } else if (verb == "fills") {
        noteFills();
    } else if (verb == "selection") {
        for (const auto& shape : host_.document->selected) {
            lines_.push_back(text("selected ", shape->name()));
        }
    } else if (verb == "move") {
        const auto bar = application.bars.find(kBar);
        if (bar)
            std::tie(bar->position, bar->left, bar->top, bar->rowIndex) = std::tuple(4, 12, 34, 2);
    } else if (verb == "delete") {
        std::erase_if(application.bars.bars, [](const auto& bar) { return bar->name == kBar; });
    } else {
        throw std::invalid_argument(text("There is no step ", verb, "."));
    }
}

void Script::click(const std::string& tag) {
    const auto bar = host_.application.bars.find(kBar);
    if (!bar) return;
    const auto buttons = bar->buttons;
    for (const auto& button : buttons) {
        if (button->tag == tag) button->Execute();
    }
}

void Script::select(const std::string& name) {
    if (name == "*") {
        host_.document->selectAll();
    } else {
        host_.document->select({host_.document->find(name)});
    }
}

void Script::replaceShapes(const std::string& colors) {
    memory::MemoryDocument& document = *host_.document;
    while (!document.shapes.empty()) document.remove(document.shapes.back());
    for (std::string rest = colors; !rest.empty();) {
        const auto [color, more] = split(rest, ',');
        document.addSolid("", std::stoi(color));
        rest = more;
    }
    document.selectAll();
}

void Script::noteFills() {
    for (const auto& shape : host_.document->shapes) {
        const memory::FillState& fill = shape->fill;
        lines_.push_back(text("fill ", shape->name(), ": ", static_cast<int>(fill.Visible), " ",
                              fill.ForeColorRGB, " ", fill.Transparency));
    }
}

void Script::noteCalls() {
    for (std::string& call : std::exchange(objects().log, {})) lines_.push_back(std::move(call));
}

void Script::disconnect() {
    addIn_.disconnect();
    noteCalls();
    for (const char* const key : {"Position", "Left", "Top", "RowIndex"}) {
        const auto stored = addIn_.settings().GetSetting(kBar, "ToolBarPosition", key);
        if (stored) lines_.push_back(text("setting ", key, "=", *stored));
    }
    for (const auto& bar : host_.application.bars.bars) {
        std::string line = text("bar ", bar->name, ":");
        for (const auto& button : bar->buttons) line += text(" ", button->tag);
        lines_.push_back(line);
    }
    lines_.push_back(text("in use: ", objects().objects(), " objects, ", objects().references(),
                          " references, ", objects().listeners(), " listeners"));
}

}  // namespace huebrush::word
