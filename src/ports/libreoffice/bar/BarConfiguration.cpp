// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/BarConfiguration.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexContainer.hpp>
#include <com/sun/star/ui/ImageType.hpp>
#include <com/sun/star/ui/ItemStyle.hpp>
#include <com/sun/star/ui/ItemType.hpp>
#include <com/sun/star/ui/UIElementType.hpp>
#include <com/sun/star/ui/XModuleUIConfigurationManagerSupplier.hpp>
#include <com/sun/star/ui/XUIConfigurationPersistence.hpp>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

constexpr std::string_view kTextModule = "com.sun.star.text.TextDocument";

/// The image types in the order of the sizes 16, 24 and 32.
constexpr sal_Int16 kImageTypes[] = {css::ui::ImageType::SIZE_DEFAULT,
                                     css::ui::ImageType::SIZE_LARGE, css::ui::ImageType::SIZE_32};

std::string textOf(const PropertyValues& values, std::string_view name) {
    rtl::OUString text;
    valueOf(values, name) >>= text;
    return fromOffice(text);
}

PropertyValues withValue(PropertyValues values, std::string_view name, const css::uno::Any& value) {
    const rtl::OUString wanted = toOffice(name);
    const sal_Int32 count = values.getLength();
    sal_Int32 at = 0;
    while (at < count && values[at].Name != wanted) ++at;
    if (at == count) values.realloc(count + 1);
    values.getArray()[at] = property(name, value);
    return values;
}

void setName(const css::uno::Reference<css::uno::XInterface>& settings, const std::string& name) {
    const css::uno::Reference<css::beans::XPropertySet> values(settings, css::uno::UNO_QUERY_THROW);
    values->setPropertyValue("UIName", css::uno::makeAny(toOffice(name)));
}

using Persistence = css::uno::Reference<css::ui::XUIConfigurationPersistence>;

Persistence persistenceOf(const css::uno::Reference<css::uno::XInterface>& configuration) {
    return {configuration, css::uno::UNO_QUERY_THROW};
}

void store(const css::uno::Reference<css::uno::XInterface>& configuration) {
    const Persistence persistence = persistenceOf(configuration);
    if (persistence->isModified()) persistence->store();
}

css::uno::Sequence<rtl::OUString> oneCommand(const std::string& command) {
    const rtl::OUString text = toOffice(command);
    return {&text, 1};
}

}  // namespace

BarConfiguration::BarConfiguration(const ContextReference& context) {
    officeCalls([&] {
        manager_ = singleton<css::ui::XModuleUIConfigurationManagerSupplier>(
                       context, "com.sun.star.ui.theModuleUIConfigurationManagerSupplier")
                       ->getUIConfigurationManager(toOffice(kTextModule));
        images_.set(manager_->getImageManager(), css::uno::UNO_QUERY_THROW);
    });
}

std::vector<BarConfiguration::Bar> BarConfiguration::bars() const {
    return officeCalls([&] {
        std::vector<Bar> bars;
        for (const PropertyValues& info :
             manager_->getUIElementsInfo(css::ui::UIElementType::TOOLBAR)) {
            bars.push_back({textOf(info, "ResourceURL"), textOf(info, "UIName")});
        }
        return bars;
    });
}

bool BarConfiguration::has(const std::string& url) const {
    return officeCalls([&] { return bool(manager_->hasSettings(toOffice(url))); });
}

void BarConfiguration::insert(const Bar& bar) {
    officeCalls([&] {
        if (persistenceOf(manager_)->isReadOnly()) {
            throw base::Error(base::ErrorNumber::kPathAccess,
                              "Nastavení panelů nástrojů lze v tomto profilu jen číst.");
        }
        const css::uno::Reference<css::container::XIndexContainer> settings =
            manager_->createSettings();
        setName(settings, bar.name);
        manager_->insertSettings(toOffice(bar.url), settings.get());
    });
}

/// The office cannot store the removal of a bar that it has never stored.
void BarConfiguration::remove(const std::string& url) {
    officeCalls([&] {
        libreoffice::store(manager_);
        manager_->removeSettings(toOffice(url));
    });
}

std::vector<BarConfiguration::Item> BarConfiguration::items(const std::string& url) const {
    return officeCalls([&] {
        const css::uno::Reference<css::container::XIndexAccess> settings =
            manager_->getSettings(toOffice(url), sal_False);
        std::vector<Item> items(static_cast<std::size_t>(settings->getCount()));
        for (std::size_t i = 0; i < items.size(); ++i) {
            settings->getByIndex(static_cast<sal_Int32>(i)) >>= items[i];
        }
        return items;
    });
}

void BarConfiguration::replaceItems(const Bar& bar, const std::vector<Item>& items) {
    officeCalls([&] {
        const css::uno::Reference<css::container::XIndexContainer> settings =
            manager_->createSettings();
        setName(settings, bar.name);
        for (std::size_t i = 0; i < items.size(); ++i) {
            settings->insertByIndex(static_cast<sal_Int32>(i), css::uno::makeAny(items[i]));
        }
        manager_->replaceSettings(toOffice(bar.url), settings.get());
    });
}

void BarConfiguration::setPictures(const std::string& command, const std::vector<Graphic>& sizes) {
    officeCalls([&] {
        const css::uno::Sequence<rtl::OUString> commands = oneCommand(command);
        for (std::size_t i = 0; i < std::size(kImageTypes); ++i) {
            const Graphic& picture = sizes[std::min(i, sizes.size() - 1)];
            const css::uno::Sequence<Graphic> pictures(&picture, 1);
            if (images_->hasImage(kImageTypes[i], commands[0])) {
                images_->replaceImages(kImageTypes[i], commands, pictures);
            } else {
                images_->insertImages(kImageTypes[i], commands, pictures);
            }
        }
    });
}

void BarConfiguration::removePictures(const std::string& command) {
    officeCalls([&] {
        const css::uno::Sequence<rtl::OUString> commands = oneCommand(command);
        for (const sal_Int16 type : kImageTypes) {
            if (images_->hasImage(type, commands[0])) images_->removeImages(type, commands);
        }
    });
}

bool BarConfiguration::hasPictures(const std::string& command) const {
    return officeCalls([&] {
        return std::ranges::any_of(kImageTypes, [&](sal_Int16 type) {
            return bool(images_->hasImage(type, toOffice(command)));
        });
    });
}

void BarConfiguration::store() {
    officeCalls([&] {
        libreoffice::store(manager_);
        libreoffice::store(images_);
    });
}

BarConfiguration::Item BarConfiguration::itemOf(const Button& button) {
    const sal_Int16 pictureAndText = css::ui::ItemStyle::ICON | css::ui::ItemStyle::TEXT;
    return properties({property("CommandURL", css::uno::makeAny(toOffice(button.command))),
                       property("Label", css::uno::makeAny(toOffice(button.caption))),
                       property("Tooltip", css::uno::makeAny(toOffice(button.tooltip))),
                       property("Type", css::uno::makeAny(css::ui::ItemType::DEFAULT)),
                       property("Style", css::uno::makeAny(pictureAndText)),
                       property("IsVisible", css::uno::makeAny(true))});
}

BarConfiguration::Item BarConfiguration::withTexts(const Item& item, const Button& button) {
    return withValue(withValue(item, "Label", css::uno::makeAny(toOffice(button.caption))),
                     "Tooltip", css::uno::makeAny(toOffice(button.tooltip)));
}

std::string BarConfiguration::commandOf(const Item& item) {
    return textOf(item, "CommandURL");
}

BarConfiguration::Button BarConfiguration::buttonOf(const Item& item) {
    return {commandOf(item), textOf(item, "Label"), textOf(item, "Tooltip")};
}

}  // namespace huebrush::libreoffice
