// SPDX-License-Identifier: MPL-2.0

#include "recolor/ScratchShape.h"

namespace huebrush::recolor {

namespace {
/// The size of a preview, in points.
constexpr float kWidth = 60.7F;
constexpr float kHeight = 19.0F;
}  // namespace

ScratchShape::ScratchShape(host::Application& application)
    : document_(application.Documents().addHidden()),
      rectangle_(document_->Shapes()->AddShape(host::MsoAutoShapeType::msoShapeRectangle, 0, 0,
                                               kWidth, kHeight)) {
    rectangle_->Line().setVisible(host::MsoTriState::msoFalse);
}

}  // namespace huebrush::recolor
