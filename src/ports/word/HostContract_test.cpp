// SPDX-License-Identifier: MPL-2.0

#include "host/HostContract.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ports/word/Word_test_support.h"

namespace huebrush::host {
namespace {

using word::Object;
using word::WordDocument;

/// The port over its stand-in under the contract's tests.
class WordContractHost final : public ContractHost {
 public:
    explicit WordContractHost(bool answersInOtherTypes = false, bool defersDetails = false) {
        word_.standIn.objects().answersInOtherTypes = answersInOtherTypes;
        word_.standIn.objects().defersDetails = defersDetails;
    }
    WordContractHost(const WordContractHost&) = delete;
    WordContractHost& operator=(const WordContractHost&) = delete;
    ~WordContractHost() override { word_.expectAllGivenBack(); }

    std::shared_ptr<Document> document() override { return reach(shown()); }
    std::shared_ptr<Document> otherDocument() override {
        return reach(word_.test.application.open("Other"));
    }

    Id addRectangle(const std::string& name, std::int32_t color) override {
        return remember(shown()->addSolid(name, color));
    }
    Id addLine(const std::string& name) override {
        const auto line = shown()->addShape(name, MsoShapeType::msoLine);
        line->fill.Visible = MsoTriState::msoFalse;
        return remember(line);
    }
    Id group(const std::string& name, const std::vector<Id>& members) override {
        std::vector<memory::MemoryShapePointer> shapes;
        for (const Id id : members) shapes.push_back(shapes_.at(id));
        return remember(shown()->addGroup(name, shapes));
    }
    void remove(Id id) override { shown()->remove(shapes_.at(id)); }
    std::string textureFile() override { return "C:\\Textury\\žula.bmp"; }

 private:
    std::shared_ptr<memory::MemoryDocument>& shown() { return word_.test.document; }
    std::shared_ptr<Document> reach(const std::shared_ptr<memory::MemoryDocument>& document) {
        return std::make_shared<WordDocument>(Object(word_.standIn.serve(document), "Document"));
    }
    Id remember(const memory::MemoryShapePointer& shape) {
        shapes_.push_back(shape);
        return shapes_.size() - 1;
    }

    word::TestWord word_;
    std::vector<memory::MemoryShapePointer> shapes_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Word, HostContract,
                         testing::Values([] { return std::make_unique<WordContractHost>(); },
                                         [] {
                                             return std::make_unique<WordContractHost>(true, true);
                                         }));

}  // namespace huebrush::host
