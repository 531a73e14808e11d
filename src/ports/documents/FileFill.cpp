// SPDX-License-Identifier: MPL-2.0

#include "ports/documents/FileFill.h"

#include "base/Error.h"
#include "files/Error.h"
#include "files/OpenFile.h"

namespace huebrush::documents {

using host::MsoTriState;

namespace {

/// More than any texture has.
constexpr std::uint64_t kLargestPicture = 64U << 20U;

std::string contentOf(const std::string& file) {
    try {
        const files::OpenFile source(file);
        if (source.size() > kLargestPicture) {
            throw base::Error(base::ErrorNumber::kPathAccess, "Soubor s texturou je příliš velký.");
        }
        std::vector<std::uint8_t> bytes(source.size());
        source.read(0, bytes);
        return {bytes.begin(), bytes.end()};
    } catch (const files::Error& error) {
        throw base::Error(base::ErrorNumber::kFileNotFound, error.what());
    }
}

}  // namespace

std::string FileFill::TextureName() {
    const host::FillProperties& fill = read();
    if (fill.UnknownTexture) {
        throw base::Error(base::ErrorNumber::kNotAvailable, "Název textury není k dispozici.");
    }
    return fill.TextureName;
}

const host::FillProperties& FileFill::read() {
    for (const NodePointer& each : shapes_) requireAlive(*each);
    std::vector<NodePointer> leaves;
    if (shapes_.size() == 1 && !shapes_.front()->isGroup()) {
        Node& node = *shapes_.front();
        if (!node.answer) {
            node.answer = std::make_shared<const host::FillProperties>(propertiesOf(node.fill()));
        }
        return *node.answer;
    }
    for (const NodePointer& each : shapes_) collectLeaves(each, leaves);
    mapping::CommonFill common;
    for (const NodePointer& each : leaves) common.add(each->fill());
    common_ = std::make_unique<host::FillProperties>(propertiesOf(common.value()));
    return *common_;
}

std::vector<std::int32_t> FileFill::GradientStops() {
    for (const NodePointer& each : shapes_) requireAlive(*each);
    if (shapes_.size() != 1) return {};
    const Node& node = *shapes_.front();
    if (node.written) return node.written->stops;
    return node.inFile ? stopColorsOf(node.inFile->office) : std::vector<std::int32_t>();
}

void FileFill::setGradientStops(const std::vector<std::int32_t>& colors) {
    if (GradientStops().size() != colors.size() || colors.empty()) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall, "Přechod nemá tolik barev.");
    }
    Node& node = *shapes_.front();
    WrittenFill& written = node.write();
    written.stops = colors;
    written.fill = withStopColors(*node.inFile, colors).host;
}

void FileFill::write(const mapping::FillWrites& writes, const std::string* picture) {
    for (const NodePointer& each : shapes_) requireAlive(*each);
    std::vector<NodePointer> leaves;
    for (const NodePointer& each : shapes_) collectLeaves(each, leaves);
    for (const NodePointer& each : leaves) {
        if (!each->canHaveFill) continue;
        WrittenFill& written = each->write();
        written.fill = edited(written.fill, writes);
        // Colours between the ends are those of the former fill.
        if (writes.build || writes.foreColor || writes.backColor) {
            written.fill.stopsMark = 0;
            written.stops.clear();
        }
        if (picture != nullptr) written.picture = *picture;
    }
}

void FileFill::build(const mapping::FillBuild& build, const std::string& picture) {
    mapping::FillWrites writes;
    writes.build = build;
    writes.foreColor = foreColor_;
    writes.backColor = backColor_;
    write(writes, &picture);
}

void FileFill::setVisible(MsoTriState visible) {
    mapping::FillWrites writes;
    writes.visible =
        visible == MsoTriState::msoFalse ? MsoTriState::msoFalse : MsoTriState::msoTrue;
    write(writes);
}

void FileFill::setForeColorRGB(std::int32_t color) {
    mapping::FillWrites writes;
    writes.foreColor = foreColor_ = color;
    write(writes);
}

void FileFill::setBackColorRGB(std::int32_t color) {
    mapping::FillWrites writes;
    writes.backColor = backColor_ = color;
    write(writes);
}

void FileFill::setTransparency(float transparency) {
    mapping::FillWrites writes;
    writes.transparency = mapping::checkedTransparency(transparency);
    write(writes);
}

void FileFill::Solid() {
    build(mapping::solidBuild());
}

void FileFill::Patterned(std::int32_t pattern) {
    build(mapping::patternBuild(pattern));
}

void FileFill::OneColorGradient(std::int32_t style, std::int32_t variant, float degree) {
    build(mapping::oneColorBuild(style, variant, degree));
}

void FileFill::TwoColorGradient(std::int32_t style, std::int32_t variant) {
    build(mapping::twoColorBuild(style, variant));
}

void FileFill::PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) {
    build(mapping::presetGradientBuild(style, variant, type));
}

void FileFill::PresetTextured(std::int32_t texture) {
    build(mapping::presetTextureBuild(texture));
}

void FileFill::UserTextured(const std::string& file) {
    build(mapping::userTextureBuild(file), contentOf(file));
}

}  // namespace huebrush::documents
