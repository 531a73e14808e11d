#pragma once

#include "forms/Runtime.h"

namespace huebrush::libreoffice {

/// A transfer area of our own: the user's clipboard keeps what the user has put there.
class PrivateClipboard final : public forms::Clipboard {
 public:
    void Clear() override { picture_ = {}; }
    base::Picture GetData() override { return picture_; }
    void SetData(const base::Picture& picture) override { picture_ = picture; }

 private:
    base::Picture picture_;
};

}  // namespace huebrush::libreoffice
