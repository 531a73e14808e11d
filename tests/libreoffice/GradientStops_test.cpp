// SPDX-License-Identifier: MPL-2.0

// Gradients of more than two colours, which newer offices have. An older one reads them by their
// ends: what holds there is tested, too.

#include <algorithm>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/Hatch.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <fstream>
#include <typelib/typedescription.hxx>

#include "DocumentsHost.h"
#include "base/Color.h"
#include "base/Text.h"
#include "fill/mFillGraficalObject.h"
#include "ports/libreoffice/document/Gradients.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::tests {

namespace css = com::sun::star;

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using host::MsoTriState;

namespace {

bool officeKnowsStops() {
    return css::uno::TypeDescription(rtl::OUString("com.sun.star.awt.Gradient2")).is();
}

/// The shapes of the document below, in their order.
enum Shape : std::size_t {
    kGreen,
    kGreenToo,
    kYellow,
    kEarly,
    kEnds,
    kEndsAsStops,
    kClear,
    kClearer,
    kClearEnds,
    kBoth,
    kBothEnds,
    kShapeCount
};

struct ColorStop {
    const char* place;
    const char* color;
};

std::string colorsXml(const char* name, const std::vector<ColorStop>& stops) {
    std::string xml =
        base::text("<draw:gradient draw:name='", name,
                   "' draw:style='linear' draw:start-color='#ff0000' draw:end-color='#0000ff'>");
    for (const ColorStop& stop : stops) {
        xml += base::text("<loext:gradient-stop svg:offset='", stop.place,
                          "' loext:color-type='rgb' loext:color-value='", stop.color, "'/>");
    }
    return xml + "</draw:gradient>";
}

/// From opaque to 80 %, with a third opacity in the middle.
std::string clearXml(const char* name, const char* middle) {
    std::string xml = base::text("<draw:opacity draw:name='", name,
                                 "' draw:style='linear' draw:start='100%' draw:end='20%'>");
    const auto add = [&](const char* place, const char* opacity) {
        xml += base::text("<loext:opacity-stop svg:offset='", place, "' svg:stop-opacity='",
                          opacity, "'/>");
    };
    if (middle != nullptr) {
        add("0", "1");
        add("0.5", middle);
        add("1", "0.2");
    }
    return xml + "</draw:opacity>";
}

/// A document in which gradients, and gradients of transparency, have the same ends and different
/// stops between them.
std::string documentXml() {
    std::string styles;
    std::string shapes;
    const auto add = [&](const std::string& fill) {
        const std::string name = base::text("gr", styles.size());
        styles += base::text("<style:style style:name='", name,
                             "' style:family='graphic'><style:graphic-properties ", fill,
                             "/></style:style>");
        shapes += base::text("<draw:rect text:anchor-type='paragraph' draw:style-name='", name,
                             "' svg:width='1cm' svg:height='1cm' svg:x='0cm' svg:y='0cm'/>");
    };
    const auto gradient = [](const char* name) {
        return base::text("draw:fill='gradient' draw:fill-gradient-name='", name, "' ");
    };
    const auto clear = [](const char* name) {
        return base::text("draw:opacity-name='", name, "' ");
    };
    const std::string solid = "draw:fill='solid' draw:fill-color='#112233' ";
    for (const char* const name : {"green", "green2", "yellow", "early", "ends", "ends2"}) {
        add(gradient(name));
    }
    for (const char* const name : {"clear", "clearer", "clearends"}) add(solid + clear(name));
    add(gradient("green") + clear("clear"));
    add(gradient("ends") + clear("clearends"));

    const std::string urn = "='urn:oasis:names:tc:opendocument:xmlns:";
    return base::text(
        "<?xml version='1.0' encoding='UTF-8'?><office:document xmlns:office", urn,
        "office:1.0' xmlns:style", urn, "style:1.0' xmlns:text", urn, "text:1.0' xmlns:draw", urn,
        "drawing:1.0' xmlns:svg", urn, "svg-compatible:1.0' ",
        "xmlns:loext='urn:org:documentfoundation:names:experimental:office:xmlns:loext:1.0' ",
        "office:version='1.3' office:mimetype='application/vnd.oasis.opendocument.text'>",
        "<office:styles>",
        colorsXml("green", {{"0", "#ff0000"}, {"0.5", "#00ff00"}, {"1", "#0000ff"}}),
        colorsXml("green2", {{"0", "#ff0000"}, {"0.5", "#00ff00"}, {"1", "#0000ff"}}),
        colorsXml("yellow", {{"0", "#ff0000"}, {"0.5", "#ffff00"}, {"1", "#0000ff"}}),
        colorsXml("early", {{"0", "#ff0000"}, {"0.25", "#00ff00"}, {"1", "#0000ff"}}),
        colorsXml("ends", {}), colorsXml("ends2", {{"0", "#ff0000"}, {"1", "#0000ff"}}),
        clearXml("clear", "0.7"), clearXml("clearer", "0.3"), clearXml("clearends", nullptr),
        "</office:styles><office:automatic-styles>", styles,
        "</office:automatic-styles><office:body><office:text><text:p>", shapes,
        "</text:p></office:text></office:body></office:document>");
}

/// That document in a file.
class GradientFile : public StoredFile {
 public:
    GradientFile() : StoredFile(".fodt") {
        std::string xml = documentXml();
        // Only by these does the office know what kind of file it is.
        std::replace(xml.begin(), xml.end(), '\'', '"');
        std::ofstream(path()) << xml;
    }
};

class GradientStopsTest : public testing::Test {
 protected:
    static std::vector<host::ShapePointer> shapesOf(libreoffice::Documents& documents,
                                                    const ModelReference& model) {
        std::vector<host::ShapePointer> all;
        const auto enumerator = documents.documentOf(model)->Shapes()->enumerate();
        while (const auto next = enumerator->next()) all.push_back(next);
        return all;
    }
    std::vector<host::ShapePointer> shapes() { return shapesOf(documents, open.model()); }

    static Any value(const ModelReference& model, std::size_t index, const char* name) {
        const Reference<css::beans::XPropertySet> set(
            pageOf(model)->getByIndex(static_cast<sal_Int32>(index)), UNO_QUERY_THROW);
        return set->getPropertyValue(libreoffice::toOffice(name));
    }
    /// What the office says of each shape's gradients.
    static std::vector<Any> gradientsOf(const ModelReference& model) {
        std::vector<Any> all;
        for (std::size_t i = 0; i < kShapeCount; ++i) {
            all.push_back(value(model, i, "FillStyle"));
            all.push_back(value(model, i, "FillGradient"));
            all.push_back(value(model, i, "FillTransparenceGradient"));
        }
        return all;
    }
    css::uno::Reference<css::document::XUndoManager> undoManager() {
        return Reference<css::document::XUndoManagerSupplier>(open.model(), UNO_QUERY_THROW)
            ->getUndoManager();
    }
    static Reference<css::container::XNameAccess> table(const ModelReference& model,
                                                        const char* name) {
        const Reference<css::lang::XMultiServiceFactory> factory(model, UNO_QUERY_THROW);
        return {factory->createInstance(
                    libreoffice::toOffice(base::text("com.sun.star.drawing.", name))),
                UNO_QUERY_THROW};
    }
    /// What is written reaches the office before the next read.
    static void show(host::Shape& shape, MsoTriState visible) {
        shape.Fill().setVisible(visible);
        EXPECT_EQ(shape.Fill().Visible(), visible);
    }
    /// Rewrites a fill as it is, the way a recolour does.
    static void writeAgain(host::FillFormat& fill, float transparency) {
        fill.setForeColorRGB(fill.ForeColorRGB());
        fill.setBackColorRGB(fill.BackColorRGB());
        fill.TwoColorGradient(fill.GradientStyle(), fill.GradientVariant());
        fill.setTransparency(transparency);
        fill.setVisible(MsoTriState::msoTrue);
        EXPECT_EQ(fill.Transparency(), transparency);
    }

    GradientFile file;
    TestDocument open{TestDocument::Window::hidden, file.url()};
    libreoffice::Documents documents{officeContext()};
};

/// Which shapes have the same fill: equal numbers stand for equal fills.
std::vector<int> kinds() {
    if (!officeKnowsStops()) return {0, 0, 0, 0, 0, 0, 1, 1, 1, 2, 2};
    return {0, 0, 1, 2, 3, 3, 4, 5, 6, 7, 8};
}

}  // namespace

TEST_F(GradientStopsTest, FillsAreTheSameOnlyWithTheSameStops) {
    const auto all = shapes();
    const std::vector<int> kind = kinds();
    ASSERT_EQ(all.size(), kind.size());
    for (std::size_t a = 0; a < all.size(); ++a) {
        for (std::size_t b = 0; b < all.size(); ++b) {
            EXPECT_EQ(fill::IsSameFill(all[a]->Fill(), all[b]->Fill()), kind[a] == kind[b])
                << a << ' ' << b;
        }
    }
}

TEST_F(GradientStopsTest, EqualFillsAreEqualAfterSaving) {
    const StoredFile stored(".odt");
    stored.store(open.model(), "writer8");
    TestDocument again(TestDocument::Window::hidden, stored.url());
    const auto before = shapes();
    const auto after = shapesOf(documents, again.model());
    ASSERT_EQ(after.size(), kShapeCount + 0U);
    for (std::size_t i = 0; i < after.size(); ++i) {
        EXPECT_TRUE(fill::IsSameFill(before[i]->Fill(), after[i]->Fill())) << i;
    }
}

TEST_F(GradientStopsTest, RecolouringOneFillLeavesTheOthersAndUndoBringsAllStopsBack) {
    const std::vector<Any> before = gradientsOf(open.model());
    const auto all = shapes();
    {
        const auto group = documents.documentOf(open.model())->undoGroup("Přebarvit");
        for (const Shape index : {kGreen, kGreenToo, kClear, kBoth}) {
            host::FillFormat& fill = all[index]->Fill();
            fill.setForeColorRGB(base::rgb(1, 2, 3));
            fill.Solid();
            fill.setTransparency(0);
            fill.setVisible(MsoTriState::msoTrue);
        }
    }
    std::vector<Any> changed = gradientsOf(open.model());
    for (std::size_t i = 0; i < kShapeCount; ++i) {
        const bool isWritten = i == kGreen || i == kGreenToo || i == kClear || i == kBoth;
        if (isWritten) continue;
        for (const std::size_t part : {0U, 1U, 2U}) {
            EXPECT_EQ(changed[3 * i + part], before[3 * i + part]) << i << ' ' << part;
        }
    }
    undoManager()->undo();
    EXPECT_EQ(gradientsOf(open.model()), before);
    undoManager()->redo();
    EXPECT_EQ(shapes()[kGreen]->Fill().ForeColorRGB(), base::rgb(1, 2, 3));
}

TEST_F(GradientStopsTest, ANewTransparencyLeavesTheColours) {
    const Any before = value(open.model(), kGreen, "FillGradient");
    writeAgain(shapes()[kGreen]->Fill(), 0.5F);
    EXPECT_EQ(value(open.model(), kGreen, "FillGradient"), before);
    EXPECT_EQ(value(open.model(), kGreen, "FillTransparence"), Any(sal_Int16(50)));
}

TEST_F(GradientStopsTest, NewColoursLeaveNoStopsBetweenThem) {
    const auto all = shapes();
    for (const Shape index : {kGreen, kEnds}) {
        all[index]->Fill().setForeColorRGB(base::rgb(1, 2, 3));
    }
    EXPECT_TRUE(fill::IsSameFill(all[kGreen]->Fill(), all[kEnds]->Fill()));
    EXPECT_EQ(value(open.model(), kGreen, "FillGradient"),
              value(open.model(), kEnds, "FillGradient"));
}

TEST_F(GradientStopsTest, ANewGradientDoesNotTakeTheOldOnesName) {
    const auto expectOwnNames = [&] {
        const auto colors = table(open.model(), "GradientTable");
        for (const Shape index : {kGreen, kGreenToo, kYellow, kEarly, kEnds, kEndsAsStops}) {
            rtl::OUString name;
            value(open.model(), index, "FillGradientName") >>= name;
            EXPECT_EQ(libreoffice::gradientOf(colors->getByName(name)),
                      libreoffice::gradientOf(value(open.model(), index, "FillGradient")))
                << index;
        }
    };
    const auto all = shapes();
    {
        const auto group = documents.documentOf(open.model())->undoGroup("Přebarvit");
        for (const Shape index : {kGreen, kYellow, kEarly, kEnds, kEndsAsStops}) {
            all[index]->Fill().setForeColorRGB(base::rgb(1, 2, index));
        }
    }
    for (const Shape index : {kGreen, kYellow, kEarly, kEnds, kEndsAsStops}) {
        EXPECT_EQ(all[index]->Fill().ForeColorRGB(), base::rgb(1, 2, index));
    }
    EXPECT_EQ(all[kGreenToo]->Fill().ForeColorRGB(), base::rgb(255, 0, 0));
    expectOwnNames();
    undoManager()->undo();
    expectOwnNames();
    undoManager()->redo();
    expectOwnNames();
}

TEST_F(GradientStopsTest, ANewHatchDoesNotTakeTheOldOnesName) {
    std::vector<ShapeReference> hatched;
    for (sal_Int32 distance = 100; distance < 110; ++distance) {
        const ShapeReference shape = addRectangle(open.model(), 0);
        setProperty(shape, "FillStyle", css::drawing::FillStyle_HATCH);
        setProperty(shape, "FillHatch",
                    css::drawing::Hatch(css::drawing::HatchStyle_SINGLE, 0xFF, distance, 450));
        hatched.push_back(shape);
    }
    const auto all = shapes();
    for (const host::ShapePointer& shape : all) {
        if (shape->Fill().Type() != host::MsoFillType::msoFillPatterned) continue;
        shape->Fill().setForeColorRGB(base::rgb(1, 2, 3));
        EXPECT_EQ(shape->Fill().ForeColorRGB(), base::rgb(1, 2, 3));
    }
    const auto hatches = table(open.model(), "HatchTable");
    for (const ShapeReference& shape : hatched) {
        const auto hatch = getProperty<css::drawing::Hatch>(shape, "FillHatch");
        EXPECT_EQ(hatch.Color, 0x010203);
        EXPECT_EQ(hatches->getByName(getProperty<rtl::OUString>(shape, "FillHatchName")),
                  css::uno::makeAny(hatch));
    }
}

TEST_F(GradientStopsTest, AHiddenFillIsShownAgainWithItsStops) {
    const auto all = shapes();
    for (const Shape index : {kYellow, kEarly, kBoth, kBothEnds}) {
        const auto read = [&](const char* name) {
            // A memory has whole parts of 255.
            return libreoffice::gradientOf(value(open.model(), index, name));
        };
        const mapping::OfficeGradient colors = read("FillGradient");
        const mapping::OfficeGradient clear = read("FillTransparenceGradient");
        EXPECT_EQ(colors.stops.size(), officeKnowsStops() && index != kBothEnds ? 3U : 0U);
        for (int round = 0; round < 3; ++round) {
            show(*all[index], MsoTriState::msoFalse);
            EXPECT_EQ(value(open.model(), index, "FillStyle"),
                      css::uno::makeAny(css::drawing::FillStyle_NONE));
            show(*all[index], MsoTriState::msoTrue);
            EXPECT_EQ(read("FillGradient"), colors) << index;
            EXPECT_EQ(read("FillTransparenceGradient"), clear) << index;
        }
    }
}

TEST_F(GradientStopsTest, OneGradientOfTransparencyHasOneName) {
    const auto all = shapes();
    for (int round = 0; round < 3; ++round) {
        for (const Shape index : {kBoth, kBothEnds}) {
            show(*all[index], MsoTriState::msoFalse);
            show(*all[index], MsoTriState::msoTrue);
        }
    }
    std::size_t ours = 0;
    for (const rtl::OUString& name :
         table(open.model(), "TransparencyGradientTable")->getElementNames()) {
        if (name.startsWith("Huebrush transparency")) ++ours;
    }
    EXPECT_EQ(ours, officeKnowsStops() ? 2U : 1U);
}

}  // namespace huebrush::tests
