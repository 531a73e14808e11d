// SPDX-License-Identifier: MPL-2.0

#include "fill/mFillGraficalObject.h"

#include "error/mError.h"
#include "fill/ApplyFillType.h"
#include "fill/FillProperties.h"

namespace huebrush::fill {

namespace {

/// The properties of a fill, each read from the host.
class AskedFill {
 public:
    explicit AskedFill(host::FillFormat& fill) : fill_(fill) {}
    template <class Value>
    Value operator()(const FillProperty<Value>& property) const {
        return (fill_.*property.read)();
    }

 private:
    host::FillFormat& fill_;
};

/// The properties of a fill whose host gives all of them at once.
class GatheredFill {
 public:
    explicit GatheredFill(const FillProperties& fill) : fill_(fill) {}
    template <class Value>
    const Value& operator()(const FillProperty<Value>& property) const {
        return fill_.*property.member;
    }
    const std::string& operator()(const FillProperty<std::string>& property) const {
        if (fill_.UnknownTexture)
            throw base::Error(base::ErrorNumber::kNotAvailable, property.name);
        return fill_.*property.member;
    }

 private:
    const FillProperties& fill_;
};

/// Reads a property of both fills, and clears the result where they differ.
template <class Fill>
class Comparison {
 public:
    Comparison(const Fill& sample, const Fill& fill) : sample_(sample), fill_(fill) {}

    template <class Value>
    void operator()(const FillProperty<Value>& property) {
        const auto& ofSample = sample_(property);
        if (!(ofSample == fill_(property))) same_ = false;
    }

    bool same() const { return same_; }

 private:
    const Fill& sample_;
    const Fill& fill_;
    bool same_ = true;
};

template <class Fill>
bool compare(const Fill& sample, const Fill& fill) {
    using namespace property;
    Comparison<Fill> comparison(sample, fill);
    comparison(kVisible);
    if (fill(kVisible) == host::MsoTriState::msoFalse || !comparison.same()) {
        return comparison.same();
    }
    forEachProperty(std::ref(comparison), kForeColorRGB, kBackColorRGB, kType, kGradientStyle,
                    kGradientColorType, kGradientVariant);
    if (hasDegree(sample(kGradientColorType))) comparison(kGradientDegree);
    forEachProperty(std::ref(comparison), kPresetGradientType, kTransparency, kTextureType,
                    kPresetTexture);
    const auto type = sample(kType);
    if (hasTextureName(type, sample(kTextureType))) comparison(kTextureName);
    comparison(kPattern);
    return comparison.same();
}

bool compare(host::FillFormat& sample, host::FillFormat& fill) {
    const FillProperties* const ofSample = sample.known();
    const FillProperties* const ofFill = ofSample == nullptr ? nullptr : fill.known();
    if (ofFill == nullptr) return compare(AskedFill(sample), AskedFill(fill));
    return compare(GatheredFill(*ofSample), GatheredFill(*ofFill));
}

}  // namespace

bool IsSameFill(host::FillFormat& SampleFill, host::FillFormat& Fill) {
    bool same = false;
    const bool completed = error::ignoring([&] { same = compare(SampleFill, Fill); });
    return completed && same;
}

void CopyFill(host::FillFormat& SourceFill, host::FillFormat& TargetFill) {
    TargetFill.setVisible(SourceFill.Visible());
    TargetFill.setForeColorRGB(SourceFill.ForeColorRGB());
    TargetFill.setBackColorRGB(SourceFill.BackColorRGB());
    const auto read = [&](const auto& property) { return (SourceFill.*property.read)(); };
    applyFillType(TargetFill, read, [&] {
        error::ignoring([&] { TargetFill.UserTextured(SourceFill.TextureName()); });
    });
    TargetFill.setTransparency(SourceFill.Transparency());
}

}  // namespace huebrush::fill
