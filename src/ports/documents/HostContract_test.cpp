// SPDX-License-Identifier: MPL-2.0

#include "host/HostContract.h"

#include <fstream>

#include "base/Color.h"
#include "files/TemporaryFolder_test_support.h"
#include "ports/documents/FileDocument.h"

namespace huebrush::host {
namespace {

/// The shapes of document files under the contract's tests.
class FileContractHost final : public ContractHost {
 public:
    FileContractHost() { std::ofstream(textureFile()) << "a picture"; }

    std::shared_ptr<Document> document() override { return document_; }
    std::shared_ptr<Document> otherDocument() override { return documents::FileDocument::create(); }

    Id addRectangle(const std::string& name, std::int32_t color) override {
        documents::Node node;
        node.name = name;
        node.write().fill.visible = MsoTriState::msoTrue;
        node.write().fill.foreColor = color;
        return remember(document_->tree()->add(std::move(node)));
    }
    Id addLine(const std::string& name) override {
        documents::Node node;
        node.name = name;
        node.canHaveFill = false;
        return remember(document_->tree()->add(std::move(node)));
    }
    Id group(const std::string& name, const std::vector<Id>& members) override {
        std::vector<documents::NodePointer> nodes;
        nodes.reserve(members.size());
        for (const Id id : members) nodes.push_back(nodes_.at(id));
        return remember(document_->tree()->group(name, nodes));
    }
    void remove(Id id) override { document_->tree()->remove(nodes_.at(id)); }
    std::string textureFile() override { return (folder_.path() / "granite.bmp").string(); }

 private:
    Id remember(documents::NodePointer node) {
        nodes_.push_back(std::move(node));
        return nodes_.size() - 1;
    }

    files::TemporaryFolder folder_;
    std::shared_ptr<documents::FileDocument> document_ = documents::FileDocument::create();
    std::vector<documents::NodePointer> nodes_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Files, HostContract,
                         testing::Values([] { return std::make_unique<FileContractHost>(); }));

}  // namespace huebrush::host
