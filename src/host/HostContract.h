// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Document.h"

namespace huebrush::host {

/// A port under the contract's tests: makes documents and does to them what a user or a macro
/// would. Shapes are identified by the number that their creation returned.
class ContractHost {
 public:
    using Id = std::size_t;

    ContractHost() = default;
    ContractHost(const ContractHost&) = delete;
    ContractHost& operator=(const ContractHost&) = delete;
    virtual ~ContractHost() = default;

    /// The one document of the test, empty at first, with a window if the port has windows.
    virtual std::shared_ptr<Document> document() = 0;
    /// A second document; not the same as the first.
    virtual std::shared_ptr<Document> otherDocument() = 0;

    /// A new top-level shape in front of all others, with a plain solid fill of this colour.
    virtual Id addRectangle(const std::string& name, std::int32_t color) = 0;
    /// A new line: a shape that can have no fill.
    virtual Id addLine(const std::string& name) = 0;
    /// Makes the foremost shapes, or groups, the members of a new group at their place. The shapes
    /// keep their numbers.
    virtual Id group(const std::string& name, const std::vector<Id>& members) = 0;
    /// Deletes a top-level shape, a group with all of its members.
    virtual void remove(Id id) = 0;

    /// The path of a picture file for user textures.
    virtual std::string textureFile() = 0;
};

/// What the logic relies on, whatever the port: one suite, run on each of them by
/// INSTANTIATE_TEST_SUITE_P with something that makes its ContractHost.
class HostContract : public testing::TestWithParam<std::function<std::unique_ptr<ContractHost>()>> {
 protected:
    void SetUp() override { host_ = GetParam()(); }
    void TearDown() override { host_.reset(); }

    ContractHost& host() { return *host_; }
    std::shared_ptr<Shapes> shapes() { return host_->document()->Shapes(); }
    /// All top-level shapes, in their order.
    std::vector<ShapePointer> all();
    ShapePointer first();

 private:
    std::unique_ptr<ContractHost> host_;
};

}  // namespace huebrush::host
