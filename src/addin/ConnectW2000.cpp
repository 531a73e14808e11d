// SPDX-License-Identifier: MPL-2.0

#include "addin/ConnectW2000.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "addin/ButtonFace.h"
#include "addin/Product.h"
#include "base/Text.h"
#include "forms/Runtime.h"
#include "select/mToolbarFunction.h"

namespace huebrush::addin {

namespace {

using base::kLineBreak;
using base::text;

constexpr const char* kModule = "Huebrush.Connect2000.";
constexpr const char* kPositionSection = "ToolBarPosition";
constexpr const char* kHostName = "Microsoft Word";
constexpr double kOldestVersion = 8.0;
/// The newest version that the add-in is known to work with, unless the user's settings name one.
constexpr double kNewestVersion = 9.0;

/// The icon of the priming pass.
constexpr std::int16_t kPrimingIcon = 101;
/// The stored position that means that none was ever stored.
constexpr std::int32_t kNoPosition = -1;

// Texts.

constexpr const char* kConnectFailed = "Chyba při navázání spojení...";
constexpr const char* kToolbarFailed = "Při vytváření nástrojového panelu došlo k chybě.";
constexpr const char* kTestedWith =
    "Tato verze dolňku byla optimalizována pro MS Word 2000 a MS Word 97.";

std::string boxTitle() {
    return text("Doplněk \"", kProduct, "\"");
}

void refuseOldHost() {
    forms::Runtime::current().MsgBox(
        text("Doplněk nemůže být zaveden...", kLineBreak, kLineBreak, kTestedWith, kLineBreak,
             "Nainstalujte si novější verzi aplikace MS Word."),
        forms::MsgBoxStyle::kCritical, boxTitle());
}

void warnOfNewHost() {
    forms::Runtime::current().MsgBox(
        text("Doplněk očekává starší verzi aplikace MS Word. Některé funkce nebudou povoleny či "
             "nebudou fungovat správně...",
             kLineBreak, kLineBreak, kTestedWith, kLineBreak,
             "Pořiďte si novější verzi doplňku a proveďte jeho instalaci."),
        forms::MsgBoxStyle::kCritical, boxTitle());
}

/// Converts a text that uses the locale's decimal separator; a point does not belong to a number
/// where another separator is used.
double toLocaleNumber(std::string value, char separator) {
    constexpr char kNoDigit = '?';
    for (char& character : value) {
        if (character == separator) {
            character = '.';
        } else if (character == '.') {
            character = kNoDigit;
        }
    }
    return base::toNumber(value);
}

/// The host's version as a number. The host writes a point in every locale, while a conversion
/// expects the locale's own separator.
double versionNumber(host::Application& application) {
    const char separator = forms::Runtime::current().Component().decimalSeparator();
    std::string version = application.Version();
    if (separator == ',') std::replace(version.begin(), version.end(), '.', ',');
    return toLocaleNumber(std::move(version), separator);
}

/// Whether the host is newer than what runs in full. A user who has tried a newer one may say so,
/// by its version with a point; what is no number counts for nothing.
bool isUntested(double version) {
    if (version <= kNewestVersion) return false;
    const auto tested =
        forms::Runtime::current().Settings().GetSetting(kProduct, "Host", "TestedVersion");
    if (!tested) return true;
    double newest = kNewestVersion;
    base::ignoring<base::Error>([&] { newest = base::toNumber(*tested); });
    return version > newest;
}

std::optional<std::string> storedPosition(const char* key) {
    return forms::Runtime::current().Settings().GetSetting(kProduct, kPositionSection, key);
}

std::int32_t storedNumber(const char* key) {
    return base::toInteger(storedPosition(key).value_or(std::string()));
}

}  // namespace

struct ConnectW2000::ButtonDesign {
    host::CommandBarControlPointer ConnectW2000::*member;
    const char* tag;
    const char* caption;
    const char* tooltip;
    std::int16_t icon;
    void (ConnectW2000::*click)();
};

ConnectW2000::~ConnectW2000() {
    closeDialogs();
    releaseBar();
}

void ConnectW2000::OnConnection(host::Application& Application) {
    error::trap({kModule, "OnConnection", kConnectFailed}, [&] { connect(Application); });
}

void ConnectW2000::connect(host::Application& application) {
    if (application.Name() != kHostName) return;
    const double version = versionNumber(application);
    if (version < kOldestVersion) {
        refuseOldHost();
        return;
    }
    WApp_ = &application;
    // The host may disconnect while events run, and even connect again.
    const auto isConnected = [this, connection = ++connection_] {
        return connection_ == connection;
    };
    CreateToolbar(application, isConnected);
    if (isConnected() && isUntested(version)) {
        warnOfNewHost();
        if (!isConnected()) return;
        if (!tbChangeFillWizard_) base::throwObjectNotSet();
        tbChangeFillWizard_->setEnabled(false);
    }
}

/// CreateToolbar at work.
struct ConnectW2000::Construction {
    /// A step gives its line, which reports name.
    error::Steps& step;
    /// The number of the icon being painted; 0 before the first one, while the user is not asked
    /// about errors.
    std::int16_t& icon;
    host::CommandBarPointer bar{};
    bool changed = false;
};

void ConnectW2000::CreateToolbar(host::Application& application,
                                 const std::function<bool()>& isConnected) {
    static constexpr std::array<ButtonDesign, 3> kButtons{{
        {&ConnectW2000::tbSellFill_, "SellFill", "Dle výplne",
         "Vybere všechny ostatní grafické objekty se shodným typem výplně jako je právě zvolený "
         "objekt",
         101, &ConnectW2000::tbSellFill_Click},
        {&ConnectW2000::tbSellLine_, "SellLine", "Dle čáry",
         "Vybere všechny ostatní grafické objekty se shodnou barvou čáry jako je právě zvolený "
         "objekt",
         102, &ConnectW2000::tbSellLine_Click},
        {&ConnectW2000::tbChangeFillWizard_, "ChangeFillWizard", "Změnit výplně",
         "Zobrazí dialog hromadné záměny výplně grafických objektů", 103,
         &ConnectW2000::tbChangeFillWizard_Click},
    }};

    std::int16_t icon = 0;
    error::Steps::run(
        {kModule, "CreateToolbar", kToolbarFailed}, [&icon] { return icon; }, isConnected,
        [&](error::Steps& step) {
            Construction toolbar{step, icon};
            findOrAddBar(toolbar, application);
            primeFaces(toolbar);
            for (const ButtonDesign& design : kButtons) findOrAddButton(toolbar, design);
            restorePosition(toolbar);
            if (toolbar.changed) {
                error::ignoring([&] { application.NormalTemplate().Save(); });
            }
        });
}

void ConnectW2000::findOrAddBar(Construction& toolbar, host::Application& application) {
    toolbar.step(101, [&] {
        host::CommandBars& bars = application.CommandBars();
        const std::int32_t count = bars.Count();
        for (std::int32_t i = 1; i <= count && !toolbar.bar; ++i) {
            const host::CommandBarPointer candidate = bars.Item(i);
            if (candidate->Name() == kProduct) toolbar.bar = candidate;
        }
        cbToolbar_ = toolbar.bar;
    });
    if (toolbar.bar) return;
    toolbar.step(102, [&] {
        toolbar.bar = application.CommandBars().Add(kProduct);
        cbToolbar_ = toolbar.bar;
        createdBar_ = true;
        toolbar.changed = true;
    });
    toolbar.step(103, [&] { toolbar.bar->setVisible(true); });
}

void ConnectW2000::primeFaces(Construction& toolbar) {
    toolbar.icon = kPrimingIcon;
    host::CommandBarControlPointer button;
    toolbar.step(104, [&] { primingButton_ = button = toolbar.bar->addButton(); });
    toolbar.step(105, [&] { SetButtonFace(button.get(), toolbar.icon); });
    toolbar.step(106, [&] {
        if (!button) base::throwObjectNotSet();
        button->Delete();
        primingButton_.reset();
    });
}

void ConnectW2000::findOrAddButton(Construction& toolbar, const ButtonDesign& design) {
    toolbar.icon = design.icon;
    host::CommandBarControlPointer button;
    toolbar.step(107, [&] {
        button = toolbar.bar->FindControl(design.tag);
        keepButton(design, button);
    });
    if (button) return;
    toolbar.step(108, [&] {
        button = toolbar.bar->addButton();
        keepButton(design, button);
    });
    const auto set = [&](std::int32_t line, const auto& change) {
        toolbar.step(line, [&] {
            if (!button) base::throwObjectNotSet();
            change(*button);
        });
    };
    set(109, [&](host::CommandBarControl& control) { control.setTag(design.tag); });
    set(110, [&](host::CommandBarControl& control) { control.setCaption(design.caption); });
    set(111, [&](host::CommandBarControl& control) { control.setTooltipText(design.tooltip); });
    toolbar.step(112, [&] { SetButtonFace(button.get(), toolbar.icon); });
    toolbar.changed = true;
}

/// Keeps a button in its member, with its click connected; nothing is kept for no button.
void ConnectW2000::keepButton(const ButtonDesign& design, host::CommandBarControlPointer button) {
    host::CommandBarControlPointer& kept = this->*design.member;
    if (kept) kept->Click.disconnect(this);
    kept = std::move(button);
    if (!kept) return;
    const auto click = design.click;
    kept->Click.connect([this, click] { (this->*click)(); }, this);
}

void ConnectW2000::restorePosition(Construction& toolbar) {
    std::int32_t position = kNoPosition;
    toolbar.step(113, [&] {
        position = base::toInteger(storedPosition("Position").value_or(text(kNoPosition)));
    });
    if (position == kNoPosition) return;
    toolbar.step(114, [&] { toolbar.bar->setPosition(storedNumber("Position")); });
    toolbar.step(115, [&] { toolbar.bar->setLeft(storedNumber("Left")); });
    toolbar.step(116, [&] { toolbar.bar->setTop(storedNumber("Top")); });
    toolbar.step(117, [&] { toolbar.bar->setRowIndex(storedNumber("RowIndex")); });
}

void ConnectW2000::OnDisconnection() {
    closeDialogs();
    if (WApp_ == nullptr) return;
    ++connection_;
    savePosition();
    removeFromBar();
    releaseBar();
    error::ignoring([this] { WApp_->NormalTemplate().Save(); });
    createdBar_ = false;
    WApp_ = nullptr;
}

void ConnectW2000::closeDialogs() {
    if (about_) error::ignoring([this] { about_->Unload(); });
    if (dialog_) error::ignoring([this] { dialog_->Unload(); });
}

void ConnectW2000::releaseBar() {
    cbToolbar_.reset();
    for (auto* const button : {&tbSellFill_, &tbSellLine_, &tbChangeFillWizard_}) {
        if (*button) (*button)->Click.disconnect(this);
        button->reset();
    }
    primingButton_.reset();
}

void ConnectW2000::savePosition() {
    if (!cbToolbar_) return;
    const auto save = [this](const char* key, std::int32_t (host::CommandBar::*read)()) {
        error::ignoring([&] {
            forms::Runtime::current().Settings().SaveSetting(kProduct, kPositionSection, key,
                                                             text(((*cbToolbar_).*read)()));
        });
    };
    save("Position", &host::CommandBar::Position);
    save("Left", &host::CommandBar::Left);
    save("Top", &host::CommandBar::Top);
    save("RowIndex", &host::CommandBar::RowIndex);
}

void ConnectW2000::removeFromBar() {
    if (createdBar_) {
        if (cbToolbar_) error::ignoring([this] { cbToolbar_->Delete(); });
        return;
    }
    for (const auto& button : {tbSellFill_, tbSellLine_, tbChangeFillWizard_, primingButton_}) {
        if (button) error::ignoring([&] { button->Delete(); });
    }
}

void ConnectW2000::tbSellFill_Click() {
    select::VseDleTypuVyplne(*WApp_);
}

void ConnectW2000::tbSellLine_Click() {
    select::VseDleBarvyCary(*WApp_);
}

void ConnectW2000::tbChangeFillWizard_Click() {
    if (!dialog_) {
        dialog_ = recolor::frmEditGraphic::create([this] { showAbout(); });
        dialog_->Unloaded.connect([this] { dialog_.reset(); });
    }
    dialog_->ShowDialog(*WApp_);
}

void ConnectW2000::showAbout() {
    if (!about_) {
        about_ = frmAbout::create();
        about_->Unloaded.connect([this] { about_.reset(); });
    }
    // The host may disconnect while the box is open.
    const std::shared_ptr<frmAbout> open = about_;
    open->Show(true);
}

}  // namespace huebrush::addin
