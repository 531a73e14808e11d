// SPDX-License-Identifier: MPL-2.0

#include "palette/frmLoadFill.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "base/Text.h"
#include "forms/Runtime.h"
#include "palette/DataFile.h"
#include "palette/PaletteDesign.h"
#include "preview/mDBMakeFillPreview.h"

namespace huebrush::palette {

namespace {

using base::kLineBreak;
using base::text;
using forms::MsgBoxResult;
using forms::CheckValue::kTicked;
namespace MsgBoxStyle = forms::MsgBoxStyle;

constexpr const char* kShowPreview = "ShowPreview";

// Where the system gives a handler no message of its own.
constexpr const char* kLoadFailed = "Při otevírání formuláře došlo k chybě...";
constexpr const char* kUnloadFailed = "Při zavírání formuláře došlo k chybě...";
constexpr const char* kChoiceFailed = "Při výběru databáze došlo k chybě...";
constexpr const char* kPaletteFailed = "Chyba při výběru záznamu...";
constexpr const char* kPreviewFailed = "Při zobrazování náhledů došlo k chybě...";
constexpr const char* kApplyFailed = "Při načítání výplní z databáze se vyskytla chyba...";

std::int32_t wholeTwips(double length) {
    return static_cast<std::int32_t>(std::lround(length));
}

/// Whether previews are to be shown, as the dialog was left last.
std::int16_t rememberedShowPreview() {
    const std::int32_t value =
        base::toInteger(forms::Runtime::current()
                            .Settings()
                            .GetSetting(kApplication, kDatabaseSection, kShowPreview)
                            .value_or("0"));
    return value == 0 ? forms::CheckValue::kClear : kTicked;
}

}  // namespace

// Opening and closing.

std::shared_ptr<frmLoadFill> frmLoadFill::create(jet::FileSystem& files) {
    return std::shared_ptr<frmLoadFill>(new frmLoadFill(files));
}

frmLoadFill::frmLoadFill(jet::FileSystem& files)
    : Form("frmLoadFill"),
      picElement(*this,
                 [this](std::int16_t index) {
                     return std::make_shared<forms::PictureBox>(picGroupElement,
                                                                text("picElement(", index, ")"));
                 }),
      files_(files) {
    setTexts();
    layOut();
    setInitialStates();
    connectHandlers();
}

void frmLoadFill::connectHandlers() {
    Resize.connect([this] { Form_Resize(); });
    Unloaded.connect([this] { Form_Unload(); });
    cmdConnectDataFile.Click.connect([this] { cmdConnectDataFile_Click(); });
    lstFillGroup.Click.connect([this] { lstFillGroup_Click(); });
    chkPreview.Click.connect([this] { chkPreview_Click(); });
    vsPreview.Change.connect([this] { vsPreview_Change(); });
    cmdApply.Click.connect([this] { cmdApply_Click(); });
    cmdOK.Click.connect([this] { cmdOK_Click(); });
    cmdCancel.Click.connect([this] { cmdCancel_Click(); });
}

void frmLoadFill::ShowReadData(PaletteRows& rows) {
    rows_ = &rows;
    handle([this] { Form_Load(); });
    Show(true);
}

void frmLoadFill::Form_Load() {
    error::trap(place("Form_Load", kLoadFailed), [this] {
        imgHorn.Picture = forms::Runtime::current().Component().icon(design::kHornIcon);
        wasTopMost_ = rows_->isTopMost();
        rows_->setTopMost(false);
        chkPreview.Value = rememberedShowPreview();
        path_ = rememberedDataFile();
        bool ok = false;
        ConnectDataFile(path_, ok);
    });
}

void frmLoadFill::Form_Unload() {
    error::trap(place("Form_Unload", kUnloadFailed), [this] {
        rememberDataFile(path_);
        forms::Runtime::current().Settings().SaveSetting(
            kApplication, kDatabaseSection, kShowPreview, text(chkPreview.Value.get()));
        rows_->setTopMost(wasTopMost_);
    });
}

void frmLoadFill::unloadElements() {
    picElement.clear();
}

// The file.

void frmLoadFill::ConnectDataFile(const std::string& path, bool& ok) {
    error::trap(place("ConnectDataFile", couldNotOpen(path)), [&] {
        if (!files_.exists(path)) return showMissing(path);
        auto connection = std::make_shared<jet::Connection>(files_);
        openDatabase(*connection, path);
        auto groups = std::make_shared<BoundRecordset>();
        if (!error::ignoring([&] { groups->Open(kPalettesQuery, *connection); })) {
            return showWithoutPalettes(path);
        }
        const auto palettes = palettesOf(*groups);
        takeOver(std::move(connection), std::move(groups));
        showFile(palettes, path);
        ok = true;
    });
}

void frmLoadFill::takeOver(std::shared_ptr<jet::Connection> connection,
                           std::shared_ptr<BoundRecordset> groups) {
    closeFills();
    connection_ = std::move(connection);
    rsGroup_ = std::move(groups);
    txtFillGroupDescription.bind(rsGroup_, "Description");
    lblCount.bind(rsGroup_, "Count");
}

void frmLoadFill::showFile(const std::vector<forms::ListItem>& palettes, const std::string& path) {
    showPalettes(lstFillGroup, palettes);
    path_ = path;
    txtDataFile.Text = path;
    const bool any = lstFillGroup.ListCount() > 0;
    for (forms::CommandButton* const button : {&cmdApply, &cmdCancel}) button->Enabled = any;
    chkPreview.Enabled = any;
    if (any) {
        lstFillGroup.ListIndex = 0;
    } else {
        hidePreview();
        forms::Runtime::current().MsgBox("V databázi nejsou uloženy žádné data",
                                         MsgBoxStyle::kOk | MsgBoxStyle::kInformation,
                                         "Upozornění...");
    }
}

void frmLoadFill::cmdConnectDataFile_Click() {
    error::trap(place("cmdConnectDataFile_Click", kChoiceFailed), [this] {
        const auto chosen = chooseDataFile(forms::FileDialog::Purpose::open, "Zvol databázi...");
        bool ok = false;
        if (chosen) ConnectDataFile(*chosen, ok);
    });
}

// The palette and its previews.

void frmLoadFill::lstFillGroup_Click() {
    error::trap(place("lstFillGroup_Click", kPaletteFailed), [this] {
        if (!findPaletteOf(lstFillGroup, *rsGroup_)) return;
        if (chkPreview.Value == kTicked) {
            MakePreview();
        } else {
            closeFills();
        }
    });
}

void frmLoadFill::chkPreview_Click() {
    error::trap(place("chkPreview_Click", kPreviewFailed), [this] {
        if (chkPreview.Value == kTicked) {
            MakePreview();
        } else {
            picMainPreview.Visible = false;
            fraMainPreview.Enabled = false;
        }
    });
}

void frmLoadFill::MakePreview() {
    error::trap(place("MakePreview", kPreviewFailed), [this] {
        hidePreview();
        if (!hasPalette()) return;
        picGroupElement.Top = 0;
        closeFills();
        openFills();
        addPreviews();
        fraMainPreview.Enabled = true;
        picMainPreview.Visible = true;
        SetScroll();
    });
}

void frmLoadFill::hidePreview() {
    while (picElement.ubound() > 0) picElement.Unload(picElement.ubound());
    picMainPreview.Visible = false;
    fraMainPreview.Enabled = false;
}

void frmLoadFill::addPreviews() {
    picGroupElement.Height = 0;
    for (std::int16_t i = 1; !rsElement_.Eof(); ++i) {
        picElement.Load(i);
        forms::PictureBox& element = picElement[i];
        const forms::PictureBox& previous = picElement[static_cast<std::int16_t>(i - 1)];
        element.Top = previous.Top + previous.Height;
        picGroupElement.Height = element.Top + element.Height;
        element.Picture =
            preview::ReadPictureFromRS([this] { return rsElement_.Field("FillPreview"); });
        element.Visible = true;
        rsElement_.MoveNext();
    }
}

void frmLoadFill::SetScroll() {
    error::trap(place("SetScroll", "Při změně nastavení posuvníků vzikla chyba.."), [this] {
        const double hidden = picGroupElement.Height - picMainPreview.ScaleHeight();
        vsPreview.Enabled = hidden > 0;
        vsPreview.Max = hidden > 0 ? wholeTwips(hidden) : 0;
        vsPreview.SmallChange = wholeTwips(picElement[0].Height);
        vsPreview.LargeChange = std::max(1, wholeTwips(picMainPreview.ScaleHeight()));
        vsPreview.setValue(0);
    });
}

void frmLoadFill::vsPreview_Change() {
    picGroupElement.Top = -vsPreview.value();
}

// Laying the palette onto the rows.

void frmLoadFill::cmdApply_Click() {
    error::trap(place("cmdApply_Click", kApplyFailed), [this] {
        if (!hasPalette()) return;
        const jet::Value count = rsGroup_->Field("Count");
        // A palette of another program may not say how many fills it has.
        if (!jet::isNull(count) && rows_->selectedRows() > jet::toLong(count)) {
            const auto answer = forms::Runtime::current().MsgBox(
                text("Počet vybraných výplní je větší nežli počet výplní v databázi.", kLineBreak,
                     "Chcete přesto v příkazu pokračovat?"),
                MsgBoxStyle::kYesNo | MsgBoxStyle::kQuestion, "Upozornnění...");
            if (answer == MsgBoxResult::no) return;
        }
        if (rsElement_.State() == jet::ObjectStateEnum::adStateClosed) openFills();
        if (rsElement_.RecordCount() > 0) applyFills();
    });
}

void frmLoadFill::applyFills() {
    rsElement_.MoveFirst();
    for (std::int16_t row = 1; row <= rows_->lastRow() && !rsElement_.Eof(); ++row) {
        if (!rows_->isRowSelected(row)) continue;
        rows_->fillOf(row).FillFromRecordset(rsElement_);
        rsElement_.MoveNext();
    }
}

void frmLoadFill::cmdOK_Click() {
    error::trap(place("cmdOK_Click", kUnloadFailed), [this] {
        if (cmdApply.Enabled) cmdApply_Click();
        Unload();
    });
}

void frmLoadFill::cmdCancel_Click() {
    error::trap(place("cmdCancel_Click", kUnloadFailed), [this] { Unload(); });
}

// The fills of the current palette.

bool frmLoadFill::hasPalette() const {
    return rsGroup_ && rsGroup_->isOpen() && rsGroup_->isOnRecord();
}

void frmLoadFill::openFills() {
    rsElement_.Open(fillsOfPaletteQuery(jet::toLong(rsGroup_->Field("ID"))), *connection_);
}

void frmLoadFill::closeFills() {
    if (rsElement_.State() == jet::ObjectStateEnum::adStateOpen) rsElement_.Close();
}

error::Place frmLoadFill::place(const char* procedure, std::string message) {
    return {"Huebrush.frmLoadFill.", procedure, std::move(message)};
}

}  // namespace huebrush::palette
