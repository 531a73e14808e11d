// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "documents/odf/FillReader.h"
#include "documents/odf/Styles.h"
#include "documents/xml/Splices.h"
#include "mapping/FillMapping.h"

namespace huebrush::documents::odf {

class Prefixes;

/// Takes a picture into a document.
class NewPictures {
 public:
    NewPictures() = default;
    NewPictures(const NewPictures&) = delete;
    NewPictures& operator=(const NewPictures&) = delete;
    virtual ~NewPictures() = default;

    /// What the element of the document's table needs to have the picture: attributes, each with a
    /// blank before it, and content. `prefixes` gives the names.
    struct Element {
        std::string attributes;
        std::string content;
    };
    virtual Element add(const std::string& name, const std::string& bytes) = 0;
};

/// An attribute that properties are to have, or not to have where there is no value.
struct PropertyChange {
    NamespaceId space;
    std::string local;
    std::optional<std::string> value;
};

/// New definitions in the tables of a document. One that is there already is used again.
class Definitions {
 public:
    /// REQUIRES: all of these outlive this.
    Definitions(const Styles& styles, const FillReader& reader, NewPictures& pictures)
        : styles_(styles), reader_(reader), pictures_(pictures) {}

    // The identifiers by which fills refer to them.
    std::string gradient(const mapping::OfficeGradient& gradient);
    std::string transparence(const mapping::OfficeGradient& gradient);
    std::string hatch(const mapping::OfficeHatch& hatch);
    /// Without bytes it is one that the document has.
    std::string image(const std::string& name, const std::string& bytes);

    /// Adds them to the document. DocumentError where it has no place for them.
    void finish(Splices& common) const;

 private:
    template <class IsSame>
    std::optional<std::string> known(NameId kind, const IsSame& isSame) const;
    std::string add(Prefixes& prefixes, std::string_view element, std::string_view name,
                    const std::string& attributes, const std::string& content);
    std::string freeName(std::string_view kind) const;

    const Styles& styles_;
    const FillReader& reader_;
    NewPictures& pictures_;
    /// By what they say, the name left out.
    std::map<std::string, std::string> added_;
    std::set<std::string> taken_;
    std::string elements_;
};

/// Finds or makes the automatic styles with which shapes get other fills. No style that the
/// document has is changed: others may use it.
class StyleChanges {
 public:
    /// REQUIRES: both outlive this.
    StyleChanges(const Styles& styles, Definitions& definitions)
        : styles_(styles), definitions_(definitions) {}

    /// What a shape is to look like; what has no value stays.
    struct Look {
        std::optional<mapping::FillTarget> fill;
        /// The bytes of the picture that the fill needs, or empty.
        std::string picture;
        /// 0xRRGGBB
        std::optional<std::int32_t> lineColor;
    };

    /// The styles that are to take the place of these. `now` is the fill that they have.
    StyleNames with(const StyleNames& names, const mapping::OfficeFill& now, const Look& wanted);

    /// Adds the new styles to the document.
    void finish(const Outline& content, Splices& splices) const;

 private:
    std::vector<PropertyChange> changesTo(const mapping::OfficeFill& now,
                                          const mapping::OfficeFill& wanted,
                                          const std::string& picture);
    std::vector<PropertyChange> bodyOf(const mapping::OfficeFill& wanted,
                                       const std::string& picture);
    std::string graphicStyle(const std::string& name, const std::vector<PropertyChange>& changes);
    StyleNames newStyles(const StyleNames& names, const mapping::OfficeFill& now,
                         const Look& wanted);
    std::string textStyle(const std::string& name, const std::vector<PropertyChange>& changes);
    std::string freeName(const std::string& name);

    const Styles& styles_;
    Definitions& definitions_;
    /// By the former styles and what they are to look like.
    std::map<std::pair<StyleNames, std::string>, StyleNames> made_;
    std::set<std::string> taken_;
    std::string elements_;
};

}  // namespace huebrush::documents::odf
