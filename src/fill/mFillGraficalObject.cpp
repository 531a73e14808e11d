#include "fill/mFillGraficalObject.h"

#include "error/mError.h"
#include "fill/ApplyFillType.h"
#include "fill/FillProperties.h"

namespace huebrush::fill {

namespace {

/// Reads a property of both fills, and clears the result where they differ.
class Comparison {
 public:
    Comparison(host::FillFormat& sample, host::FillFormat& fill) : sample_(sample), fill_(fill) {}

    template <class Value>
    void operator()(const FillProperty<Value>& property) {
        const Value ofSample = (sample_.*property.read)();
        if (!(ofSample == (fill_.*property.read)())) same_ = false;
    }

    bool same() const { return same_; }

 private:
    host::FillFormat& sample_;
    host::FillFormat& fill_;
    bool same_ = true;
};

bool compare(host::FillFormat& sample, host::FillFormat& fill) {
    using namespace property;
    Comparison comparison(sample, fill);
    comparison(kVisible);
    if (fill.Visible() == host::MsoTriState::msoFalse || !comparison.same()) {
        return comparison.same();
    }
    forEachProperty(std::ref(comparison), kForeColorRGB, kBackColorRGB, kType, kGradientStyle,
                    kGradientColorType, kGradientVariant);
    if (hasDegree(sample.GradientColorType())) comparison(kGradientDegree);
    forEachProperty(std::ref(comparison), kPresetGradientType, kTransparency, kTextureType,
                    kPresetTexture);
    const auto type = sample.Type();
    if (hasTextureName(type, sample.TextureType())) comparison(kTextureName);
    comparison(kPattern);
    return comparison.same();
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
