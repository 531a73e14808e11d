// SPDX-License-Identifier: MPL-2.0

#include "host/HostContract.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "forms/Runtime.h"
#include "ports/memory/MemoryHost.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::host {
namespace {

/// The memory port under the contract's tests.
class MemoryContractHost final : public ContractHost {
 public:
    std::shared_ptr<Document> document() override { return document_; }
    std::shared_ptr<Document> otherDocument() override { return application_.open("Other"); }

    Id addRectangle(const std::string& name, std::int32_t color) override {
        return remember(document_->addSolid(name, color));
    }
    Id addLine(const std::string& name) override {
        const auto line = document_->addShape(name, MsoShapeType::msoLine);
        line->fill.Visible = MsoTriState::msoFalse;
        return remember(line);
    }
    Id group(const std::string& name, const std::vector<Id>& members) override {
        std::vector<memory::MemoryShapePointer> shapes;
        shapes.reserve(members.size());
        for (const Id id : members) shapes.push_back(shapes_.at(id));
        return remember(document_->addGroup(name, shapes));
    }
    void remove(Id id) override { document_->remove(shapes_.at(id)); }
    std::string textureFile() override { return "/textures/granite.bmp"; }

 private:
    Id remember(const memory::MemoryShapePointer& shape) {
        shapes_.push_back(shape);
        return shapes_.size() - 1;
    }

    memory::MemoryRuntime runtime_;
    forms::RuntimeScope scope_{runtime_};
    memory::MemoryApplication application_;
    std::shared_ptr<memory::MemoryDocument> document_ = application_.open("Document");
    std::vector<memory::MemoryShapePointer> shapes_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Memory, HostContract,
                         testing::Values([] { return std::make_unique<MemoryContractHost>(); }));

}  // namespace huebrush::host
