// SPDX-License-Identifier: MPL-2.0

#include "ports/word/host/Fill.h"

#include <cstdint>
#include <string>

namespace huebrush::word {

using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;
using host::MsoTriState;

const Object& WordFill::fill() {
    if (!fill_) fill_ = owner_.object("FillFormat", "Fill");
    return fill_;
}

template <class Value>
Value WordFill::number(const char* property) {
    return static_cast<Value>(fill().get(property).toInteger());
}

/// A colour is asked for anew each time: a new kind of fill may have another one.
Object WordFill::color(const char* property) {
    return fill().object("ColorFormat", property);
}

MsoTriState WordFill::Visible() {
    return number<MsoTriState>("Visible");
}
void WordFill::setVisible(MsoTriState visible) {
    fill().put("Visible", static_cast<std::int32_t>(visible));
}
std::int32_t WordFill::ForeColorRGB() {
    return color("ForeColor").get("RGB").toInteger();
}
void WordFill::setForeColorRGB(std::int32_t rgb) {
    color("ForeColor").put("RGB", rgb);
}
std::int32_t WordFill::BackColorRGB() {
    return color("BackColor").get("RGB").toInteger();
}
void WordFill::setBackColorRGB(std::int32_t rgb) {
    color("BackColor").put("RGB", rgb);
}
float WordFill::Transparency() {
    return fill().get("Transparency").toSingle();
}
void WordFill::setTransparency(float transparency) {
    fill().put("Transparency", transparency);
}
MsoFillType WordFill::Type() {
    return number<MsoFillType>("Type");
}
std::int32_t WordFill::GradientStyle() {
    return number("GradientStyle");
}
MsoGradientColorType WordFill::GradientColorType() {
    return number<MsoGradientColorType>("GradientColorType");
}
std::int32_t WordFill::GradientVariant() {
    return number("GradientVariant");
}
float WordFill::GradientDegree() {
    return fill().get("GradientDegree").toSingle();
}
std::int32_t WordFill::PresetGradientType() {
    return number("PresetGradientType");
}
MsoTextureType WordFill::TextureType() {
    return number<MsoTextureType>("TextureType");
}
std::int32_t WordFill::PresetTexture() {
    return number("PresetTexture");
}
std::string WordFill::TextureName() {
    return fill().get("TextureName").toText();
}
std::int32_t WordFill::Pattern() {
    return number("Pattern");
}
void WordFill::Solid() {
    fill().call("Solid");
}
void WordFill::Patterned(std::int32_t pattern) {
    fill().call("Patterned", {pattern});
}
void WordFill::OneColorGradient(std::int32_t style, std::int32_t variant, float degree) {
    fill().call("OneColorGradient", {style, variant, degree});
}
void WordFill::TwoColorGradient(std::int32_t style, std::int32_t variant) {
    fill().call("TwoColorGradient", {style, variant});
}
void WordFill::PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) {
    fill().call("PresetGradient", {style, variant, type});
}
void WordFill::PresetTextured(std::int32_t texture) {
    fill().call("PresetTextured", {texture});
}
void WordFill::UserTextured(const std::string& file) {
    fill().call("UserTextured", {file});
}

const Object& WordLine::line() {
    if (!line_) line_ = owner_.object("LineFormat", "Line");
    return line_;
}
MsoTriState WordLine::Visible() {
    return static_cast<MsoTriState>(line().get("Visible").toInteger());
}
void WordLine::setVisible(MsoTriState visible) {
    line().put("Visible", static_cast<std::int32_t>(visible));
}
std::int32_t WordLine::ForeColorRGB() {
    return line().object("ColorFormat", "ForeColor").get("RGB").toInteger();
}
void WordLine::setForeColorRGB(std::int32_t color) {
    line().object("ColorFormat", "ForeColor").put("RGB", color);
}

}  // namespace huebrush::word
