// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/graphic/XGraphic.hpp>
#include <com/sun/star/ui/XImageManager.hpp>
#include <com/sun/star/ui/XUIConfigurationManager.hpp>
#include <string>
#include <vector>

#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// The tool bars of the office's text windows, as its user configuration keeps them. What is
/// changed here is seen in all open windows; it lasts beyond the session once it is stored.
class BarConfiguration {
 public:
    struct Bar {
        std::string url;
        std::string name;
    };
    struct Button {
        std::string command;
        std::string caption;
        std::string tooltip;
    };
    using Graphic = com::sun::star::uno::Reference<com::sun::star::graphic::XGraphic>;
    /// One control of a bar, with whatever the office keeps of it.
    using Item = PropertyValues;

    explicit BarConfiguration(const ContextReference& context);

    std::vector<Bar> bars() const;
    bool has(const std::string& url) const;
    /// Adds a bar without controls. An error when the profile cannot be written. REQUIRES: a bar of
    /// this URL was not removed in this session, because the office would not accept it again.
    void insert(const Bar& bar);
    void remove(const std::string& url);

    std::vector<Item> items(const std::string& url) const;
    void replaceItems(const Bar& bar, const std::vector<Item>& items);

    /// The picture of a command in the office's sizes 16, 24 and 32, scaled where it has another.
    void setPictures(const std::string& command, const std::vector<Graphic>& sizes);
    void removePictures(const std::string& command);
    bool hasPictures(const std::string& command) const;

    void store();

    static Item itemOf(const Button& button);
    /// The control with other texts, and all else as it is.
    static Item withTexts(const Item& item, const Button& button);
    static std::string commandOf(const Item& item);
    static Button buttonOf(const Item& item);

 private:
    com::sun::star::uno::Reference<com::sun::star::ui::XUIConfigurationManager> manager_;
    com::sun::star::uno::Reference<com::sun::star::ui::XImageManager> images_;
};

}  // namespace huebrush::libreoffice
