// SPDX-License-Identifier: MPL-2.0

// Writer's documents through the object model: what is Writer's own about it.

#include <algorithm>
#include <array>
#include <com/sun/star/awt/Gradient.hpp>
#include <com/sun/star/awt/XBitmap.hpp>
#include <com/sun/star/awt/XControlModel.hpp>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/Hatch.hpp>
#include <com/sun/star/drawing/LineStyle.hpp>
#include <com/sun/star/drawing/XControlShape.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/style/BreakType.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>
#include <functional>

#include "DocumentsHost.h"
#include "base/Color.h"
#include "base/Text.h"
#include "forms/Runtime.h"
#include "mapping/Patterns.h"
#include "mapping/Textures.h"
#include "ports/libreoffice/document/ShapePicture.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/Graphics.h"

namespace huebrush::tests {

namespace css = com::sun::star;

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using host::MsoFillType;
using host::MsoShapeType;
using host::MsoTriState;
using libreoffice::HandlerScope;

namespace {

constexpr std::int32_t kRed = base::rgb(200, 0, 0);
constexpr std::int32_t kGreen = base::rgb(0, 160, 20);
constexpr std::int32_t kBlue = base::rgb(10, 20, 250);

Reference<css::awt::XBitmap> graphicOf(const base::Picture& picture) {
    return {libreoffice::graphicOf(officeContext(), picture), UNO_QUERY_THROW};
}

Reference<css::awt::XBitmap> graphicOf(const ShapeReference& shape) {
    return graphicOf(libreoffice::pictureOf(officeContext(), shape));
}

/// An image of width 0 from no bytes.
mapping::Image pixelsOf(const css::uno::Sequence<sal_Int8>& file) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(file.getLength()));
    std::copy(file.begin(), file.end(), bytes.begin());
    return mapping::imageOfBitmapFile(bytes);
}

/// An open document with what is needed to look at it.
class DocumentsTest : public testing::Test {
 protected:
    std::shared_ptr<host::Document> document() { return documents.documentOf(open.model()); }
    host::ShapePointer shape(std::size_t index) { return shapes().at(index); }

    std::vector<host::ShapePointer> shapes() {
        std::vector<host::ShapePointer> all;
        const auto enumerator = document()->Shapes()->enumerate();
        while (const auto next = enumerator->next()) all.push_back(next);
        return all;
    }

    css::uno::Reference<css::document::XUndoManager> undoManager() {
        return Reference<css::document::XUndoManagerSupplier>(open.model(), UNO_QUERY_THROW)
            ->getUndoManager();
    }

    TestDocument open;
    libreoffice::Documents documents{officeContext()};
};

void paint(host::FillFormat& fill, const std::function<void()>& build, float transparency = 0) {
    fill.setForeColorRGB(kBlue);
    fill.setBackColorRGB(kGreen);
    build();
    fill.setTransparency(transparency);
    fill.setVisible(MsoTriState::msoTrue);
}

/// Everything that a fill reports.
struct Answers {
    MsoTriState visible;
    std::int32_t fore;
    std::int32_t back;
    float transparency;
    MsoFillType type;
    std::int32_t gradientStyle;
    host::MsoGradientColorType gradientColorType;
    std::int32_t gradientVariant;
    float gradientDegree;
    std::int32_t presetGradient;
    host::MsoTextureType textureType;
    std::int32_t presetTexture;
    std::int32_t pattern;
    std::string textureName;

    explicit Answers(host::FillFormat& fill)
        : visible(fill.Visible()),
          fore(fill.ForeColorRGB()),
          back(fill.BackColorRGB()),
          transparency(fill.Transparency()),
          type(fill.Type()),
          gradientStyle(fill.GradientStyle()),
          gradientColorType(fill.GradientColorType()),
          gradientVariant(fill.GradientVariant()),
          gradientDegree(fill.GradientDegree()),
          presetGradient(fill.PresetGradientType()),
          textureType(fill.TextureType()),
          presetTexture(fill.PresetTexture()),
          pattern(fill.Pattern()) {
        try {
            textureName = fill.TextureName();
        } catch (const base::Error&) {
            textureName = "(refused)";
        }
    }

    friend bool operator==(const Answers&, const Answers&) = default;
};

std::ostream& operator<<(std::ostream& out, const Answers& a) {
    return out << "visible " << static_cast<int>(a.visible) << " fore " << a.fore << " back "
               << a.back << " transparency " << a.transparency << " type "
               << static_cast<int>(a.type) << " gradient " << a.gradientStyle << '/'
               << a.gradientVariant << '/' << static_cast<int>(a.gradientColorType) << '/'
               << a.gradientDegree << '/' << a.presetGradient << " texture "
               << static_cast<int>(a.textureType) << '/' << a.presetTexture << " pattern "
               << a.pattern << " name " << a.textureName;
}

using Build = std::function<void(host::FillFormat&)>;

std::vector<Build> everyFill(const std::string& textureFile) {
    using host::FillFormat;
    std::vector<Build> builds = {[](FillFormat& fill) { fill.Solid(); },
                                 [=](FillFormat& fill) { fill.UserTextured(textureFile); }};
    for (std::int32_t pattern = 1; pattern <= mapping::kPatternCount; ++pattern) {
        builds.emplace_back([=](FillFormat& fill) { fill.Patterned(pattern); });
    }
    for (std::int32_t texture = 1; texture <= mapping::kTextureCount; ++texture) {
        builds.emplace_back([=](FillFormat& fill) { fill.PresetTextured(texture); });
        builds.emplace_back([=](FillFormat& fill) { fill.PresetGradient(1, 3, texture); });
    }
    for (std::int32_t style = 1; style <= 7; ++style) {
        for (std::int32_t variant = 1; variant <= 4; ++variant) {
            builds.emplace_back([=](FillFormat& fill) { fill.TwoColorGradient(style, variant); });
            builds.emplace_back(
                [=](FillFormat& fill) { fill.OneColorGradient(style, variant, 0.37F); });
        }
    }
    return builds;
}

}  // namespace

// Fills in files

TEST_F(DocumentsTest, EveryFillSurvivesSavingAsOpenDocument) {
    const PictureFile texture;
    const std::vector<Build> builds = everyFill(texture.path());
    for (std::size_t i = 0; i < 2 * builds.size(); ++i) addRectangle(open.model(), kRed);
    // The second half stands in a group.
    std::vector<Answers> written;
    std::vector<host::ShapePointer> all = shapes();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Build& build = builds[i % builds.size()];
        paint(
            all[i]->Fill(), [&] { build(all[i]->Fill()); }, i % 3 == 0 ? 0.0F : 1.0F / 3);
        if (i % 5 == 0) all[i]->Fill().setVisible(MsoTriState::msoFalse);
        written.emplace_back(all[i]->Fill());
    }
    const StoredFile file(".odt");
    file.store(open.model(), "writer8");
    TestDocument again(TestDocument::Window::hidden, file.url());
    const auto enumerator = documents.documentOf(again.model())->Shapes()->enumerate();
    for (const Answers& answers : written) {
        const auto shape = enumerator->next();
        ASSERT_NE(shape, nullptr);
        EXPECT_EQ(Answers(shape->Fill()), answers);
    }
}

TEST_F(DocumentsTest, AMembersFillSurvivesSavingAsOpenDocument) {
    groupShapes(open.model(), {addRectangle(open.model(), kRed), addRectangle(open.model(), kRed)});
    const auto member = shape(0)->GroupItems()->Item(2);
    paint(
        member->Fill(), [&] { member->Fill().PresetGradient(2, 2, 9); }, 0.123F);
    const Answers written(member->Fill());
    const StoredFile file(".odt");
    file.store(open.model(), "writer8");
    TestDocument again(TestDocument::Window::hidden, file.url());
    const auto group = documents.documentOf(again.model())->Shapes()->enumerate()->next();
    EXPECT_EQ(Answers(group->GroupItems()->Item(2)->Fill()), written);
}

TEST_F(DocumentsTest, PatternsAndTexturesSurviveSavingAsWordDocument) {
    addRectangle(open.model(), kRed);
    addRectangle(open.model(), kRed);
    const auto first = shape(0);
    const auto second = shape(1);
    paint(first->Fill(), [&] { first->Fill().Patterned(33); });
    paint(second->Fill(), [&] { second->Fill().PresetTextured(7); });
    const StoredFile file(".docx");
    file.store(open.model(), "MS Word 2007 XML");
    TestDocument again(TestDocument::Window::hidden, file.url());
    const auto enumerator = documents.documentOf(again.model())->Shapes()->enumerate();
    EXPECT_EQ(Answers(enumerator->next()->Fill()), Answers(first->Fill()));
    EXPECT_EQ(Answers(enumerator->next()->Fill()), Answers(second->Fill()));
}

// What others write

TEST_F(DocumentsTest, AMemoryEndsWithAnyOtherWriteToTheFill) {
    const ShapeReference rectangle = addRectangle(open.model(), kRed);
    const auto one = shape(0);
    paint(one->Fill(), [&] { one->Fill().OneColorGradient(1, 1, 0.2F); });
    EXPECT_EQ(one->Fill().GradientColorType(), host::MsoGradientColorType::msoGradientOneColor);
    auto gradient = getProperty<css::awt::Gradient>(rectangle, "FillGradient");
    gradient.EndColor = 0x00FF00;
    setProperty(rectangle, "FillGradient", gradient);
    EXPECT_EQ(one->Fill().GradientColorType(), host::MsoGradientColorType::msoGradientTwoColors);
    EXPECT_EQ(one->Fill().BackColorRGB(), base::rgb(0, 255, 0));
    setProperty(rectangle, "FillStyle", css::drawing::FillStyle_SOLID);
    setProperty(rectangle, "FillColor", sal_Int32(0x112233));
    EXPECT_EQ(one->Fill().Type(), MsoFillType::msoFillSolid);
    EXPECT_EQ(one->Fill().ForeColorRGB(), base::rgb(0x11, 0x22, 0x33));
}

TEST_F(DocumentsTest, SolidFillsOfAnyOriginAreEqual) {
    addRectangle(open.model(), kBlue);
    addRectangle(open.model(), kRed);
    addRectangle(open.model(), kRed);
    const ShapeReference ellipse = addShape(open.model(), "EllipseShape");
    setProperty(ellipse, "FillColor", base::swapRedAndBlue(kBlue));
    const auto all = shapes();
    paint(all[1]->Fill(), [&] { all[1]->Fill().Solid(); });
    paint(
        all[2]->Fill(), [&] { all[2]->Fill().PresetTextured(3); }, 0.3F);
    paint(all[2]->Fill(), [&] { all[2]->Fill().OneColorGradient(1, 2, 0.1F); });
    paint(all[2]->Fill(), [&] { all[2]->Fill().Solid(); });
    for (const auto& one : all) EXPECT_EQ(Answers(one->Fill()), Answers(all[0]->Fill()));
}

TEST_F(DocumentsTest, AHatchIsAPatternOfItsColours) {
    const ShapeReference rectangle = addRectangle(open.model(), kRed);
    setProperty(rectangle, "FillStyle", css::drawing::FillStyle_HATCH);
    setProperty(rectangle, "FillHatch",
                css::drawing::Hatch(css::drawing::HatchStyle_SINGLE, 0x0000FF, 100, 450));
    setProperty(rectangle, "FillBackground", sal_Bool(true));
    setProperty(rectangle, "FillColor", sal_Int32(0xFFFF00));
    EXPECT_EQ(shape(0)->Fill().Type(), MsoFillType::msoFillPatterned);
    EXPECT_EQ(shape(0)->Fill().ForeColorRGB(), base::rgb(0, 0, 255));
    EXPECT_EQ(shape(0)->Fill().BackColorRGB(), base::rgb(255, 255, 0));
    EXPECT_EQ(shape(0)->Fill().Pattern(), 22);
}

TEST_F(DocumentsTest, AnUnreadableTextureFileIsAnErrorOfItsCall) {
    addRectangle(open.model(), kRed);
    const auto one = shape(0);
    EXPECT_THROW(one->Fill().UserTextured("/no/such/file.png"), base::Error);
    EXPECT_THROW(one->Fill().UserTextured("/proc/self/status"), base::Error);
    EXPECT_EQ(one->Fill().Type(), MsoFillType::msoFillSolid);
    EXPECT_EQ(one->Fill().ForeColorRGB(), kRed);
}

// What counts as a shape

TEST_F(DocumentsTest, FramesPicturesAndObjectsAreNotShapes) {
    const Reference<css::lang::XMultiServiceFactory> factory(open.model(), UNO_QUERY_THROW);
    const Reference<css::text::XTextDocument> text(open.model(), UNO_QUERY_THROW);
    for (const char* service :
         {"com.sun.star.text.TextFrame", "com.sun.star.text.TextGraphicObject"}) {
        const Reference<css::text::XTextContent> content(
            factory->createInstance(libreoffice::toOffice(service)), UNO_QUERY_THROW);
        text->getText()->insertTextContent(text->getText()->getEnd(), content, false);
    }
    addShape(open.model(), "GraphicObjectShape");
    addRectangle(open.model(), kRed);
    ASSERT_GE(pageOf(open.model())->getCount(), 3);
    EXPECT_EQ(document()->Shapes()->Count(), 1);
    ASSERT_EQ(shapes().size(), 1U);
    EXPECT_EQ(shape(0)->Fill().ForeColorRGB(), kRed);
}

TEST_F(DocumentsTest, TheTextFrameOfAShapeIsNotAShape) {
    for (int i = 0; i < 3; ++i) {
        const ShapeReference shape = addRectangle(open.model(), kRed);
        setProperty(shape, "TextBox", sal_Bool(true));
    }
    EXPECT_EQ(document()->Shapes()->Count(), 3);
    ASSERT_EQ(shapes().size(), 3U);
    undoManager()->clear();
    {
        const auto group = document()->undoGroup("Přebarvit");
        shape(2)->Fill().setForeColorRGB(kBlue);
    }
    EXPECT_EQ(shape(2)->Fill().ForeColorRGB(), kBlue);
    undoManager()->undo();
    EXPECT_EQ(shape(2)->Fill().ForeColorRGB(), kRed);
}

TEST_F(DocumentsTest, APictureShowsTheTransparencyOfItsShape) {
    const ShapeReference rectangle = addRectangle(open.model(), kRed);
    setProperty(rectangle, "LineStyle", css::drawing::LineStyle_NONE);
    setProperty(rectangle, "FillTransparence", sal_Int16(50));
    const Reference<css::awt::XBitmap> graphic = graphicOf(rectangle);
    const mapping::Image colors = pixelsOf(graphic->getDIB());
    const mapping::Image mask = pixelsOf(graphic->getMaskDIB());
    const auto x = colors.width() / 2;
    const auto y = colors.height() / 2;
    // As it is seen on a white ground. At the half it doesn't matter which way the mask counts.
    const int weight = mask.width() == 0 ? 255 : mask.at(x, y) & 0xFF;
    const int red = 255 + ((colors.at(x, y) >> 16) - 255) * weight / 255;
    const int green = 255 + ((colors.at(x, y) >> 8 & 0xFF) - 255) * weight / 255;
    EXPECT_NEAR(red, (255 + 200) / 2.0, 3);
    EXPECT_NEAR(green, 255 / 2.0, 3);
}

TEST_F(DocumentsTest, GradientsRunTheWayTheirVariantsSay) {
    const ShapeReference rectangle = addRectangle(open.model(), kRed);
    const auto one = shape(0);
    setProperty(rectangle, "LineStyle", css::drawing::LineStyle_NONE);
    // The fore colour's part in a corner, at an edge's middle or in the centre of the picture.
    struct Place {
        std::int32_t style;
        std::int32_t variant;
        double x;
        double y;
        bool isFore;
    };
    for (const Place& place : std::vector<Place>{
             {1, 1, 0.5, 0, true},    {1, 1, 0.5, 1, false},   {1, 2, 0.5, 0, false},
             {1, 3, 0.5, 0, true},    {1, 3, 0.5, 0.5, false}, {1, 4, 0.5, 0.5, true},
             {2, 1, 0, 0.5, true},    {2, 2, 0, 0.5, false},   {3, 1, 0, 0, true},
             {3, 1, 1, 1, false},     {4, 1, 1, 0, true},      {4, 1, 0, 1, false},
             {5, 1, 0, 0, true},      {5, 2, 1, 0, true},      {5, 3, 0, 1, true},
             {5, 4, 1, 1, true},      {5, 4, 0, 0, false},     {7, 1, 0.5, 0, true},
             {7, 1, 0.5, 0.5, false}, {7, 2, 0.5, 0.5, true}}) {
        one->Fill().setForeColorRGB(base::rgb(255, 0, 0));
        one->Fill().setBackColorRGB(base::rgb(0, 0, 255));
        one->Fill().TwoColorGradient(place.style, place.variant);
        one->Fill().setVisible(MsoTriState::msoTrue);
        const mapping::Image image = pixelsOf(graphicOf(rectangle)->getDIB());
        ASSERT_GT(image.width(), 20);
        const auto at = [](double part, std::int32_t size) {
            constexpr std::int32_t kMargin = 3;
            return kMargin + static_cast<std::int32_t>(part * (size - 1 - 2 * kMargin));
        };
        const std::int32_t color =
            image.at(at(place.x, image.width()), at(place.y, image.height()));
        const bool isFore = (color >> 16) > (color & 0xFF);
        EXPECT_EQ(isFore, place.isFore)
            << place.style << '/' << place.variant << " at " << place.x << ", " << place.y;
    }
}

TEST_F(DocumentsTest, ShapesTiedToCharactersCountToo) {
    const ShapeReference inText = newShape(open.model(), "RectangleShape");
    setProperty(inText, "AnchorType", css::text::TextContentAnchorType_AS_CHARACTER);
    pageOf(open.model())->add(inText);
    const ShapeReference onPage = newShape(open.model(), "EllipseShape");
    setProperty(onPage, "AnchorType", css::text::TextContentAnchorType_AT_PAGE);
    pageOf(open.model())->add(onPage);
    EXPECT_EQ(document()->Shapes()->Count(), 2);
}

TEST_F(DocumentsTest, ShapesInHeadersAndFootersAreLeftOut) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(open.model(), UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> styles(
        supplier->getStyleFamilies()->getByName("PageStyles"), UNO_QUERY_THROW);
    const Reference<css::beans::XPropertySet> style(styles->getByName("Standard"), UNO_QUERY_THROW);
    for (const char* part : {"Header", "Footer"}) {
        style->setPropertyValue(libreoffice::toOffice(base::text(part, "IsOn")),
                                Any(sal_Bool(true)));
        const Reference<css::text::XText> text(
            style->getPropertyValue(libreoffice::toOffice(base::text(part, "Text"))),
            UNO_QUERY_THROW);
        const Reference<css::text::XTextContent> content(newShape(open.model(), "RectangleShape"),
                                                         UNO_QUERY_THROW);
        text->insertTextContent(text->getEnd(), content, false);
    }
    ASSERT_EQ(pageOf(open.model())->getCount(), 2);
    EXPECT_EQ(document()->Shapes()->Count(), 0);
    EXPECT_TRUE(shapes().empty());
    const ShapeReference inBody = newShape(open.model(), "RectangleShape");
    setProperty(inBody, "FillColor", base::swapRedAndBlue(kGreen));
    const Reference<css::text::XText> body(
        Reference<css::text::XTextDocument>(open.model(), UNO_QUERY_THROW)->getText());
    body->insertTextContent(body->getEnd(),
                            Reference<css::text::XTextContent>(inBody, UNO_QUERY_THROW), false);
    EXPECT_EQ(document()->Shapes()->Count(), 1);
    EXPECT_EQ(shape(0)->Fill().ForeColorRGB(), kGreen);
}

TEST_F(DocumentsTest, WhatCannotHaveAFillIsLeftAlone) {
    addShape(open.model(), "LineShape");
    addShape(open.model(), "ConnectorShape");
    addShape(open.model(), "PolyLineShape");
    const Reference<css::lang::XMultiServiceFactory> factory(open.model(), UNO_QUERY_THROW);
    const ShapeReference control = newShape(open.model(), "ControlShape");
    Reference<css::drawing::XControlShape>(control, UNO_QUERY_THROW)
        ->setControl(Reference<css::awt::XControlModel>(
            factory->createInstance("com.sun.star.form.component.CheckBox"), UNO_QUERY_THROW));
    pageOf(open.model())->add(control);
    const auto all = shapes();
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(all[0]->Type(), MsoShapeType::msoLine);
    EXPECT_EQ(all[3]->Type(), MsoShapeType::msoFormControl);
    for (const auto& one : all) {
        EXPECT_EQ(one->Fill().Visible(), MsoTriState::msoFalse);
        paint(one->Fill(), [&] { one->Fill().Solid(); });
        EXPECT_EQ(one->Fill().Visible(), MsoTriState::msoFalse);
        EXPECT_EQ(Answers(one->Fill()), Answers(all[0]->Fill()));
    }
    EXPECT_EQ(all[3]->Line().Visible(), MsoTriState::msoFalse);
}

// Names

TEST_F(DocumentsTest, OfficeNamesAreUsedButNeverWritten) {
    const auto name = [&](const ShapeReference& shape, const char* text) {
        Reference<css::container::XNamed>(shape, UNO_QUERY_THROW)
            ->setName(libreoffice::toOffice(text));
        return shape;
    };
    const auto nameOf = [](const ShapeReference& shape) {
        return libreoffice::fromOffice(
            Reference<css::container::XNamed>(shape, UNO_QUERY_THROW)->getName());
    };
    const ShapeReference house = name(addRectangle(open.model(), kRed), "Dům");
    const ShapeReference twin = name(addRectangle(open.model(), kGreen), "Dům");
    const ShapeReference unnamed = name(addRectangle(open.model(), kBlue), "");
    EXPECT_EQ(shape(0)->Name(), "Dům");
    EXPECT_NE(shape(1)->Name(), "Dům");
    EXPECT_FALSE(shape(2)->Name().empty());
    EXPECT_EQ(document()->Shapes()->Range({"Dům"})->Item(1)->Fill().ForeColorRGB(), kRed);
    EXPECT_EQ(nameOf(house), "Dům");
    EXPECT_EQ(nameOf(twin), "Dům");
    EXPECT_EQ(nameOf(unnamed), "");
}

TEST_F(DocumentsTest, AMemberTakesNoNameOfAShapeAtTheTopLevel) {
    const auto named = [](const ShapeReference& shape, const char* text) {
        Reference<css::container::XNamed>(shape, UNO_QUERY_THROW)
            ->setName(libreoffice::toOffice(text));
        return shape;
    };
    groupShapes(open.model(), {named(addRectangle(open.model(), kRed), "Dům"),
                               named(addRectangle(open.model(), kGreen), "Strom")});
    named(addRectangle(open.model(), kBlue), "Dům");
    const auto members = shape(0)->GroupItems();
    EXPECT_EQ(members->Item(2)->Name(), "Strom");
    EXPECT_NE(members->Item(1)->Name(), "Dům");
    EXPECT_EQ(shape(1)->Name(), "Dům");
    EXPECT_EQ(document()->Shapes()->Range({"Dům"})->Item(1)->Fill().ForeColorRGB(), kBlue);
    EXPECT_EQ(document()->Shapes()->Range({"Strom"})->Item(1)->Fill().ForeColorRGB(), kGreen);
}

TEST_F(DocumentsTest, NamesAreTheSameWhenNobodyHasHeldTheShape) {
    for (int i = 0; i < 5; ++i) {
        Reference<css::container::XNamed>(addRectangle(open.model(), kRed), UNO_QUERY_THROW)
            ->setName("");
    }
    std::vector<std::string> names;
    for (const auto& one : shapes()) names.push_back(one->Name());
    EXPECT_EQ(document()->Shapes()->Range(names)->Count(), 5);
    std::vector<std::string> again;
    for (const auto& one : shapes()) again.push_back(one->Name());
    EXPECT_EQ(again, names);
}

TEST_F(DocumentsTest, ASelectedMemberIsKnownAsTheSameShape) {
    const ShapeReference group = groupShapes(
        open.model(), {addRectangle(open.model(), kRed), addRectangle(open.model(), kGreen)});
    const Reference<css::container::XIndexAccess> members(group, UNO_QUERY_THROW);
    const Reference<css::view::XSelectionSupplier> window(open.model()->getCurrentController(),
                                                          UNO_QUERY_THROW);
    window->select(Any(ShapeReference(members->getByIndex(1), UNO_QUERY_THROW)));
    const auto selected = document()->Selection()->ShapeRange();
    ASSERT_EQ(selected->Count(), 1);
    EXPECT_EQ(selected->Item(1)->Fill().ForeColorRGB(), kGreen);
    const auto member = shape(0)->GroupItems()->Item(2);
    EXPECT_EQ(selected->Item(1)->Name(), member->Name());
    member->Fill().setForeColorRGB(kBlue);
    EXPECT_EQ(selected->Item(1)->Fill().ForeColorRGB(), kBlue);
    pageOf(open.model())->remove(group);
    EXPECT_THROW(selected->Item(1)->Fill().Visible(), base::Error);
}

/// Ends the text with a paragraph of its own page, and ties a rectangle to it.
void addPageWithRectangle(const ModelReference& model) {
    const Reference<css::text::XText> text(
        Reference<css::text::XTextDocument>(model, UNO_QUERY_THROW)->getText());
    text->insertControlCharacter(text->getEnd(), css::text::ControlCharacter::PARAGRAPH_BREAK,
                                 false);
    const Reference<css::beans::XPropertySet> paragraph(
        text->createTextCursorByRange(text->getEnd()), UNO_QUERY_THROW);
    paragraph->setPropertyValue("BreakType", Any(css::style::BreakType_PAGE_BEFORE));
    const ShapeReference shape = newShape(model, "RectangleShape");
    setProperty(shape, "AnchorType", css::text::TextContentAnchorType_AT_PARAGRAPH);
    text->insertTextContent(text->getEnd(),
                            Reference<css::text::XTextContent>(shape, UNO_QUERY_THROW), false);
}

TEST_F(DocumentsTest, ShapesOnPagesThatAreNotLaidOutYetAreSelectedToo) {
    constexpr std::int32_t kPages = 60;
    for (std::int32_t i = 0; i < kPages; ++i) addPageWithRectangle(open.model());
    const StoredFile file(".odt");
    file.store(open.model(), "writer8");
    TestDocument again(TestDocument::Window::shown, file.url());
    // What the office by itself includes in the selection.
    const Reference<css::view::XSelectionSupplier> window(again.model()->getCurrentController(),
                                                          UNO_QUERY_THROW);
    const auto all = libreoffice::createService<css::drawing::XShapes>(
        officeContext(), "com.sun.star.drawing.ShapeCollection");
    const auto page = pageOf(again.model());
    for (std::int32_t i = 0; i < page->getCount(); ++i) {
        all->add(ShapeReference(page->getByIndex(i), UNO_QUERY_THROW));
    }
    window->select(Any(all));
    const auto shapesOf = documents.documentOf(again.model());
    ASSERT_LT(shapesOf->Selection()->ShapeRange()->Count(), kPages);

    std::vector<std::string> names;
    const auto enumerator = shapesOf->Shapes()->enumerate();
    while (const auto next = enumerator->next()) names.push_back(next->Name());
    ASSERT_EQ(names.size(), static_cast<std::size_t>(kPages));
    shapesOf->Shapes()->Range(names)->Select();
    EXPECT_EQ(shapesOf->Selection()->ShapeRange()->Count(), kPages);
}

TEST_F(DocumentsTest, SelectedTextIsNotAShape) {
    addRectangle(open.model(), kRed);
    shape(0)->Select();
    ASSERT_EQ(document()->Selection()->ShapeRange()->Count(), 1);
    document()->Shapes()->Range({})->Select();
    EXPECT_EQ(document()->Selection()->ShapeRange()->Count(), 1) << "an empty range selected";
    TestDocument other;
    const auto text = documents.documentOf(other.model());
    EXPECT_EQ(text->Selection()->ShapeRange()->Count(), 0);
}

// What few shapes have

TEST_F(DocumentsTest, ATransparencyIsReadOfTheShapesThatHaveOne) {
    const ShapeReference own = addRectangle(open.model(), kRed);
    addRectangle(open.model(), kRed);
    const Reference<css::beans::XPropertyState> states(own, UNO_QUERY_THROW);
    setProperty(own, "FillTransparence", sal_Int16(10));
    EXPECT_FLOAT_EQ(shape(0)->Fill().Transparency(), 0.1F);
    EXPECT_FLOAT_EQ(shape(1)->Fill().Transparency(), 0.0F);
    setProperty(own, "FillTransparence", sal_Int16(0));
    EXPECT_FLOAT_EQ(shape(0)->Fill().Transparency(), 0.0F);
    setProperty(own, "FillTransparence", sal_Int16(20));
    states->setPropertyToDefault("FillTransparence");
    EXPECT_FLOAT_EQ(shape(0)->Fill().Transparency(), 0.0F);
}

TEST_F(DocumentsTest, ATransparencyGradientIsReadOfTheShapesThatHaveOne) {
    addRectangle(open.model(), kRed);
    const ShapeReference other = addRectangle(open.model(), kRed);
    const HandlerScope handler(documents.snapshot());
    EXPECT_FLOAT_EQ(shape(1)->Fill().Transparency(), 0.0F);
    documents.snapshot()->invalidate();
    const css::awt::Gradient gradient(css::awt::GradientStyle_LINEAR, 0x000000, 0xFFFFFF, 0, 0, 50,
                                      50, 100, 100, 0);
    const Reference<css::lang::XMultiServiceFactory> factory(open.model(), UNO_QUERY_THROW);
    const Reference<css::container::XNameContainer> table(
        factory->createInstance("com.sun.star.drawing.TransparencyGradientTable"), UNO_QUERY_THROW);
    table->insertByName("Fading", Any(gradient));
    setProperty(other, "FillTransparenceGradientName", rtl::OUString("Fading"));
    documents.snapshot()->invalidate();
    EXPECT_FLOAT_EQ(shape(0)->Fill().Transparency(), 0.0F);
    EXPECT_FLOAT_EQ(shape(1)->Fill().Transparency(), 0.5F);
}

// The snapshot

TEST_F(DocumentsTest, InAHandlerReadsAreAnsweredUntilEventsRun) {
    const ShapeReference rectangle = addRectangle(open.model(), kRed);
    const HandlerScope handler(documents.snapshot());
    const auto one = shape(0);
    EXPECT_EQ(one->Fill().ForeColorRGB(), kRed);
    documents.snapshot()->invalidate();
    setProperty(rectangle, "FillColor", base::swapRedAndBlue(kGreen));
    documents.snapshot()->invalidate();
    EXPECT_EQ(one->Fill().ForeColorRGB(), kGreen);
}

TEST_F(DocumentsTest, InAHandlerAFillIsReportedAtOnceUntilEventsRun) {
    const ShapeReference rectangle = addRectangle(open.model(), kRed);
    const auto one = shape(0);
    EXPECT_EQ(one->Fill().known(), nullptr);
    const HandlerScope handler(documents.snapshot());
    ASSERT_NE(one->Fill().known(), nullptr);
    EXPECT_EQ(one->Fill().known()->ForeColorRGB, kRed);
    one->Fill().setForeColorRGB(kBlue);
    EXPECT_EQ(one->Fill().known()->ForeColorRGB, kBlue);
    documents.snapshot()->invalidate();
    setProperty(rectangle, "FillColor", base::swapRedAndBlue(kGreen));
    documents.snapshot()->invalidate();
    EXPECT_EQ(one->Fill().known()->ForeColorRGB, kGreen);
}

TEST_F(DocumentsTest, InAHandlerAGroupAnswersForMembersThatAreYetToBeWritten) {
    groupShapes(open.model(), {addRectangle(open.model(), kRed), addRectangle(open.model(), kRed)});
    groupShapes(open.model(), {addRectangle(open.model(), kRed), addRectangle(open.model(), kRed)});
    const HandlerScope handler(documents.snapshot());
    const auto group = shape(0);
    const auto other = shape(1);
    EXPECT_EQ(group->Fill().ForeColorRGB(), kRed);
    const auto member = group->GroupItems()->Item(2);
    const auto undo = document()->undoGroup("Test");
    member->Fill().setForeColorRGB(kGreen);
    EXPECT_EQ(group->Fill().ForeColorRGB(), host::kMixed);
    EXPECT_EQ(other->Fill().ForeColorRGB(), kRed);
    group->Fill().setForeColorRGB(kBlue);
    EXPECT_EQ(member->Fill().ForeColorRGB(), kBlue);
    EXPECT_EQ(group->Fill().ForeColorRGB(), kBlue);
}

TEST_F(DocumentsTest, OutsideHandlersEveryReadIsLive) {
    const ShapeReference rectangle = addRectangle(open.model(), kRed);
    const auto one = shape(0);
    EXPECT_EQ(one->Fill().ForeColorRGB(), kRed);
    setProperty(rectangle, "FillColor", base::swapRedAndBlue(kGreen));
    EXPECT_EQ(one->Fill().ForeColorRGB(), kGreen);
}

TEST_F(DocumentsTest, AClosedDocumentsShapesAreErrors) {
    addRectangle(open.model(), kRed);
    const auto closed = document();
    const auto one = shape(0);
    open.close();
    EXPECT_THROW(one->Fill().Visible(), base::Error);
    EXPECT_THROW(one->Name(), base::Error);
    EXPECT_THROW(closed->Shapes()->Count(), base::Error);
    EXPECT_THROW(closed->Selection()->ShapeRange(), base::Error);
}

// Undo

TEST_F(DocumentsTest, AnUndoGroupIsOneStepOfTheOffice) {
    for (int i = 0; i < 120; ++i) addRectangle(open.model(), kRed);
    groupShapes(open.model(), {addRectangle(open.model(), kRed), addRectangle(open.model(), kRed)});
    const PictureFile texture;
    std::vector<std::string> names;
    for (const auto& one : shapes()) names.push_back(one->Name());
    // Fills of every kind before, some of them remembered ones.
    const std::vector<Build> builds = everyFill(texture.path());
    std::vector<Answers> before;
    for (const auto& one : shapes()) {
        const Build& build = builds[before.size() * 3 % builds.size()];
        if (before.size() % 2 == 0) {
            paint(
                one->Fill(), [&] { build(one->Fill()); }, 0.4F);
        }
        before.emplace_back(one->Fill());
    }
    const Reference<css::util::XModifiable> modifiable(open.model(), UNO_QUERY_THROW);
    modifiable->setModified(false);
    undoManager()->clear();

    for (const bool inHandler : {false, true}) {
        std::unique_ptr<HandlerScope> handler;
        if (inHandler) handler = std::make_unique<HandlerScope>(documents.snapshot());
        {
            const auto group = document()->undoGroup("Přebarvit");
            const auto range = document()->Shapes()->Range(names);
            paint(
                range->Fill(), [&] { range->Fill().OneColorGradient(3, 2, 0.7F); }, 0.5F);
            shape(3)->Fill().setVisible(MsoTriState::msoFalse);
        }
        handler.reset();
        const auto titles = undoManager()->getAllUndoActionTitles();
        ASSERT_EQ(titles.getLength(), 1);
        EXPECT_EQ(libreoffice::fromOffice(titles[0]), "Přebarvit");
        EXPECT_TRUE(modifiable->isModified());
        std::vector<Answers> after;
        for (const auto& one : shapes()) after.emplace_back(one->Fill());
        EXPECT_EQ(after[5].gradientDegree, 0.7F);
        EXPECT_EQ(after[3].visible, MsoTriState::msoFalse);

        modifiable->setModified(false);
        undoManager()->undo();
        EXPECT_TRUE(modifiable->isModified());
        const auto undone = shapes();
        for (std::size_t i = 0; i < undone.size(); ++i) {
            EXPECT_EQ(Answers(undone[i]->Fill()), before[i]) << i;
        }
        undoManager()->redo();
        const auto redone = shapes();
        for (std::size_t i = 0; i < redone.size(); ++i) {
            EXPECT_EQ(Answers(redone[i]->Fill()), after[i]) << i;
        }
        undoManager()->undo();
    }
}

TEST_F(DocumentsTest, AWrittenFillLeavesTheThemeAndUndoBringsItBack) {
    const ShapeReference rectangle = addRectangle(open.model(), kRed);
    setProperty(rectangle, "FillColorTheme", sal_Int16(4));
    css::beans::PropertyValue scheme;
    scheme.Name = "SpPrSolidFillSchemeClr";
    scheme.Value = Any(libreoffice::toOffice("accent1"));
    css::beans::PropertyValue line;
    line.Name = "EmuLineWidth";
    line.Value = Any(sal_Int32(12700));
    using Memory = css::uno::Sequence<css::beans::PropertyValue>;
    const std::array<css::beans::PropertyValue, 2> entries{scheme, line};
    setProperty(rectangle, "InteropGrabBag", Memory(entries.data(), 2));
    const auto has = [&](const char* name) {
        const auto memory = getProperty<Memory>(rectangle, "InteropGrabBag");
        return std::any_of(memory.begin(), memory.end(),
                           [&](const auto& entry) { return entry.Name.equalsAscii(name); });
    };
    {
        const auto group = document()->undoGroup("Přebarvit");
        shape(0)->Fill().setForeColorRGB(kBlue);
    }
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(getProperty<sal_Int16>(rectangle, "FillColorTheme"), -1);
        EXPECT_FALSE(has("SpPrSolidFillSchemeClr"));
        EXPECT_TRUE(has("EmuLineWidth"));
        undoManager()->undo();
        EXPECT_EQ(shape(0)->Fill().ForeColorRGB(), kRed);
        EXPECT_EQ(getProperty<sal_Int16>(rectangle, "FillColorTheme"), 4);
        EXPECT_TRUE(has("SpPrSolidFillSchemeClr"));
        EXPECT_TRUE(has("EmuLineWidth"));
        undoManager()->redo();
        EXPECT_EQ(shape(0)->Fill().ForeColorRGB(), kBlue);
    }
}

TEST_F(DocumentsTest, EveryClosedTypeOfShapeTakesAFillEvenAsAMember) {
    const std::vector<std::string> services{
        "RectangleShape", "EllipseShape", "PolyPolygonShape",  "TextShape",
        "CustomShape",    "CaptionShape", "ClosedBezierShape", "ClosedFreeHandShape"};
    std::vector<ShapeReference> members;
    for (const std::string& service : services) {
        addShape(open.model(), service);
        members.push_back(addShape(open.model(), service));
    }
    groupShapes(open.model(), members);
    {
        const HandlerScope handler(documents.snapshot());
        const auto group = document()->undoGroup("Přebarvit");
        for (const auto& each : shapes()) {
            paint(each->Fill(), [&] { each->Fill().Solid(); });
        }
        for (const host::FailedWrite& each : group->finish()) {
            ADD_FAILURE() << each.shape << ": " << each.error.description();
        }
    }
    EXPECT_EQ(shapes().size(), services.size() + 1);
    for (const auto& each : shapes()) EXPECT_EQ(each->Fill().ForeColorRGB(), kBlue) << each->Name();
}

TEST_F(DocumentsTest, AnUndoGroupReportsWhichOfItsGatheredWritesHaveFailed) {
    for (const char* const name : {"Moon", "Star", "Sun"}) {
        const ShapeReference rectangle = addRectangle(open.model(), kRed);
        Reference<css::container::XNamed>(rectangle, UNO_QUERY_THROW)
            ->setName(libreoffice::toOffice(name));
    }
    undoManager()->clear();
    auto handler = std::make_unique<HandlerScope>(documents.snapshot());
    const auto group = document()->undoGroup("Přebarvit");
    const auto range = document()->Shapes()->Range({"Moon", "Star", "Sun"});
    paint(range->Fill(), [&] { range->Fill().Solid(); });
    // Nothing of this has reached the office yet.
    const auto page = pageOf(open.model());
    ASSERT_EQ(
        getProperty<sal_Int32>(ShapeReference(page->getByIndex(2), UNO_QUERY_THROW), "FillColor"),
        base::swapRedAndBlue(kRed));
    page->remove({page->getByIndex(2), UNO_QUERY_THROW});
    const auto failed = group->finish();
    EXPECT_TRUE(group->finish().empty());
    handler.reset();
    ASSERT_EQ(failed.size(), 1U);
    EXPECT_EQ(failed[0].shape, "Sun");
    EXPECT_FALSE(failed[0].error.description().empty());
    for (const auto& each : shapes()) EXPECT_EQ(each->Fill().ForeColorRGB(), kBlue);
    undoManager()->undo();
    for (const auto& each : shapes()) EXPECT_EQ(each->Fill().ForeColorRGB(), kRed);
}

TEST_F(DocumentsTest, AnUndoGroupWithoutChangesLeavesNoStep) {
    addRectangle(open.model(), kRed);
    const auto steps = undoManager()->getAllUndoActionTitles().getLength();
    {
        const auto group = document()->undoGroup("Nic");
        shape(0)->Fill().setForeColorRGB(kRed);
    }
    EXPECT_EQ(undoManager()->getAllUndoActionTitles().getLength(), steps);
}

TEST_F(DocumentsTest, AnUndoGroupSaysThatItsDocumentWasClosed) {
    addRectangle(open.model(), kRed);
    const auto unchanged = document()->undoGroup("Nic");
    EXPECT_TRUE(unchanged->finish().empty());
    const auto group = document()->undoGroup("Přebarvit");
    shape(0)->Fill().setForeColorRGB(kBlue);
    open.close();
    const auto failed = group->finish();
    EXPECT_TRUE(group->finish().empty());
    ASSERT_EQ(failed.size(), 1U);
    EXPECT_TRUE(failed[0].shape.empty());
    EXPECT_EQ(failed[0].error.description(), "Dokument byl zavřen.");
}

TEST_F(DocumentsTest, UndoLeavesOutAShapeThatIsGone) {
    addRectangle(open.model(), kRed);
    const ShapeReference last = addRectangle(open.model(), kRed);
    {
        const auto group = document()->undoGroup("Přebarvit");
        for (const auto& one : shapes()) one->Fill().setForeColorRGB(kBlue);
    }
    undoManager()->lock();
    pageOf(open.model())->remove(last);
    undoManager()->unlock();
    undoManager()->undo();
    EXPECT_EQ(shape(0)->Fill().ForeColorRGB(), kRed);
}

// The scratch document

TEST_F(DocumentsTest, AScratchDocumentGivesPreviews) {
    const HandlerScope handler(documents.snapshot());
    const auto scratch = documents.addHidden();
    EXPECT_FALSE(scratch->isSame(*document()));
    const auto rectangle =
        scratch->Shapes()->AddShape(host::MsoAutoShapeType::msoShapeRectangle, 0, 0, 60.7F, 19);
    rectangle->Line().setVisible(MsoTriState::msoFalse);
    paint(rectangle->Fill(), [&] { rectangle->Fill().Solid(); });
    rectangle->Select();
    ASSERT_EQ(scratch->Selection()->ShapeRange()->Count(), 1);
    EXPECT_EQ(scratch->Selection()->ShapeRange()->Item(1)->Name(), rectangle->Name());
    const libreoffice::ActiveWindow window(officeContext());
    libreoffice::OfficeRuntime runtime(officeContext(), "", window, documents.snapshot());
    const forms::RuntimeScope scope(runtime);
    scratch->Selection()->Copy();
    const mapping::Image image = pixelsOf(graphicOf(runtime.Clipboard().GetData())->getDIB());
    ASSERT_EQ(image.width(), 81);
    ASSERT_EQ(image.height(), 25);
    EXPECT_EQ(image.at(40, 12), base::swapRedAndBlue(kBlue));
    rectangle->Fill().setVisible(MsoTriState::msoFalse);
    scratch->Selection()->Copy();
    EXPECT_TRUE(runtime.Clipboard().GetData().empty());
    scratch->Close();
    EXPECT_THROW(rectangle->Fill().Visible(), base::Error);
}

// Many

TEST_F(DocumentsTest, ThousandsOfShapesAreListedNamedAndWrittenInOrder) {
    constexpr int kCount = 2500;
    open.model()->lockControllers();
    for (int i = 0; i < kCount; ++i) {
        addRectangle(open.model(), i % 4 == 0 ? kRed : base::rgb(0, static_cast<unsigned>(i), 9));
    }
    open.model()->unlockControllers();
    const HandlerScope handler(documents.snapshot());
    const auto all = shapes();
    ASSERT_EQ(all.size(), static_cast<std::size_t>(kCount));
    std::vector<std::string> names;
    for (const auto& one : all) {
        if (one->Fill().ForeColorRGB() == kRed) names.push_back(one->Name());
    }
    ASSERT_EQ(names.size(), static_cast<std::size_t>(kCount / 4 + 1) - (kCount % 4 == 0 ? 1 : 0));
    {
        const auto group = document()->undoGroup("Přebarvit");
        const auto range = document()->Shapes()->Range(names);
        paint(range->Fill(), [&] { range->Fill().Solid(); });
    }
    documents.snapshot()->invalidate();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto number = static_cast<unsigned>(i);
        EXPECT_EQ(all[i]->Fill().ForeColorRGB(), i % 4 == 0 ? kBlue : base::rgb(0, number, 9)) << i;
    }
    undoManager()->undo();
    documents.snapshot()->invalidate();
    for (std::size_t i = 0; i < all.size(); i += 4) {
        EXPECT_EQ(all[i]->Fill().ForeColorRGB(), kRed) << i;
    }
}

}  // namespace huebrush::tests
