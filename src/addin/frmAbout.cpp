// SPDX-License-Identifier: MPL-2.0

#include "addin/frmAbout.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

#include "addin/Product.h"
#include "base/Text.h"
#include "error/mError.h"
#include "forms/Runtime.h"

namespace huebrush::addin {

namespace {

using base::text;

// Texts.

constexpr const char* kAddIn = "Doplněk aplikace MS Word 97/2000";
constexpr const char* kDescription =
    "Hromadná záměna výplní grafických objektů: každá výplň výběru se ukáže jednou a najednou se "
    "změní u všech svých objektů.";
constexpr const char* kCredits = "Autoři: tým projektu Huebrush";
constexpr const char* kLicence = "Licence: Mozilla Public License 2.0 (MPL-2.0)";
constexpr const char* kDisclaimer =
    "Program smíte používat, šířit i měnit podle této licence. Je poskytován tak, jak je, bez "
    "jakékoli záruky.";
constexpr const char* kNoSystemInformation = "System Information Is Unavailable At This Time";

// The component's own pictures.
constexpr std::int32_t kLogoIcon = 401;
constexpr std::int32_t kBrushIcon = 403;

/// Where the registry keeps the system information tool: its own path, or else its folder.
constexpr const char* kToolKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr const char* kToolValue = "PATH";
constexpr const char* kToolFolderKey = R"(SOFTWARE\Microsoft\Shared Tools Location)";
constexpr const char* kToolFolderValue = "MSINFO";
constexpr const char* kToolFile = R"(\MSINFO32.EXE)";

/// The design of the box, in twips.
namespace design {
constexpr double kWidth = 6240;
constexpr double kHeight = 4020;
constexpr double kMargin = 240;
constexpr double kLine = 285;
constexpr double kTextLeft = 1500;
constexpr double kTextWidth = kWidth - kTextLeft - kMargin;
constexpr double kWholeWidth = kWidth - 2 * kMargin;
constexpr double kIconWidth = 975;
constexpr double kIconHeight = 420;
constexpr double kBrushSize = 480;
constexpr double kButtonWidth = 1740;
constexpr double kButtonHeight = 420;
constexpr double kButtonLeft = kWidth - kMargin - kButtonWidth;
constexpr double kButtonTop = 2880;
constexpr double kButtonStep = 480;
}  // namespace design

std::string hexadecimal(std::uint32_t number) {
    char digits[8];
    char* const end = std::to_chars(std::begin(digits), std::end(digits), number, 16).ptr;
    std::transform(std::begin(digits), end, std::begin(digits), [](char digit) {
        return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    });
    return text("&h", std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

/// "1.00.0015" becomes "1.0.15"; a part that is missing is 0.
std::string plainVersion(std::string_view version) {
    std::array<std::int32_t, 3> numbers{};
    for (std::int32_t& number : numbers) {
        if (version.empty()) break;
        const std::size_t point = std::min(version.find('.'), version.size());
        number = base::toInteger(version.substr(0, point));
        version.remove_prefix(std::min(point + 1, version.size()));
    }
    return text(numbers[0], ".", numbers[1], ".", numbers[2]);
}

/// The path of the system information tool, or nothing.
std::optional<std::string> systemInformationTool() {
    std::string path;
    const auto root = forms::RegistryRoot::localMachine;
    if (frmAbout::GetKeyValue(root, kToolKey, kToolValue, path)) return path;
    if (!frmAbout::GetKeyValue(root, kToolFolderKey, kToolFolderValue, path)) return std::nullopt;
    path += kToolFile;
    if (!forms::Runtime::current().System().fileExists(path)) return std::nullopt;
    return path;
}

}  // namespace

std::shared_ptr<frmAbout> frmAbout::create() {
    std::shared_ptr<frmAbout> box(new frmAbout());
    box->handle([&] { box->Form_Load(); });
    return box;
}

frmAbout::frmAbout() : Form("frmAbout") {
    setTexts();
    layOut();
    cmdOK.Default = true;
    cmdOK.Click.connect([this] { cmdOK_Click(); });
    cmdSysInfo.Click.connect([this] { cmdSysInfo_Click(); });
}

void frmAbout::setTexts() {
    Label2.Caption = std::string(kAddIn);
    lblDescription.Caption = std::string(kDescription);
    Label1.Caption = std::string(kCredits);
    Label3.Caption = std::string(kLicence);
    lblDisclaimer.Caption = std::string(kDisclaimer);
    cmdOK.Caption = std::string("OK");
    cmdSysInfo.Caption = std::string("&System Info...");
}

void frmAbout::layOut() {
    using namespace design;
    Width = kWidth;
    Height = kHeight;
    picIcon.Move(kMargin, kMargin, kIconWidth, kIconHeight);
    Image1.Move(kMargin, 1140, kBrushSize, kBrushSize);
    lblTitle.Move(kTextLeft, kMargin, kTextWidth, kLine);
    lblVersion.Move(kTextLeft, 540, kTextWidth, kLine);
    Label2.Move(kTextLeft, 840, kTextWidth, kLine);
    lblDescription.Move(kTextLeft, 1140, kTextWidth, 3 * kLine);
    Label1.Move(kMargin, 2130, kWholeWidth, kLine);
    Label3.Move(kMargin, 2430, kWholeWidth, kLine);
    lblDisclaimer.Move(kMargin, kButtonTop, kButtonLeft - 2 * kMargin, 3 * kLine);
    cmdOK.Move(kButtonLeft, kButtonTop, kButtonWidth, kButtonHeight);
    cmdSysInfo.Move(kButtonLeft, kButtonTop + kButtonStep, kButtonWidth, kButtonHeight);
}

void frmAbout::Form_Load() {
    const forms::Component& component = forms::Runtime::current().Component();
    picIcon.Picture = component.icon(kLogoIcon);
    Image1.Picture = component.icon(kBrushIcon);
    Caption = text("O doplňku ", kProduct);
    lblTitle.Caption = std::string(kProduct);
    lblVersion.Caption = text("Verze ", plainVersion(component.version()));
    onTop(true);
}

void frmAbout::cmdOK_Click() {
    Unload();
}

void frmAbout::cmdSysInfo_Click() {
    StartSysInfo();
}

void frmAbout::StartSysInfo() {
    forms::Runtime& runtime = forms::Runtime::current();
    const bool started = error::ignoring([&] {
        const auto tool = systemInformationTool();
        if (!tool) base::throwObjectNotSet();
        runtime.System().start(*tool);
    });
    if (!started) runtime.MsgBox(kNoSystemInformation, forms::MsgBoxStyle::kOk, kProduct);
}

bool frmAbout::GetKeyValue(forms::RegistryRoot KeyRoot, const std::string& Key,
                           const std::string& ValueName, std::string& KeyVal) {
    const auto value = forms::Runtime::current().System().registryValue(KeyRoot, Key, ValueName);
    if (!value) return false;
    if (const auto* const string = std::get_if<std::string>(&*value)) {
        KeyVal = string->substr(0, string->find('\0'));
    } else {
        KeyVal = hexadecimal(std::get<std::uint32_t>(*value));
    }
    return true;
}

void frmAbout::onTop(bool value) {
    TopMost = value;
}

}  // namespace huebrush::addin
