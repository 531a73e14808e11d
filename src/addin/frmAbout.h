// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/System.h"

namespace huebrush::addin {

/// The about box: the product, its version, what it is and its licence, and a button for the
/// system information tool.
class frmAbout final : public forms::Form {
 public:
    /// Makes and loads the box.
    static std::shared_ptr<frmAbout> create();

    forms::Image picIcon{*this, "picIcon"};
    forms::Image Image1{*this, "Image1"};
    forms::Label lblTitle{*this, "lblTitle"};
    forms::Label lblVersion{*this, "lblVersion"};
    forms::Label Label2{*this, "Label2"};
    forms::Label lblDescription{*this, "lblDescription"};
    forms::Label Label1{*this, "Label1"};
    forms::Label Label3{*this, "Label3"};
    forms::Label lblDisclaimer{*this, "lblDisclaimer"};
    forms::CommandButton cmdOK{*this, "cmdOK"};
    forms::CommandButton cmdSysInfo{*this, "cmdSysInfo"};

    /// Reads a value of the registry as text: a text up to its first NUL, a number in hexadecimal
    /// with "&h" before it. Whether the key and the value are there; otherwise `KeyVal` stays.
    static bool GetKeyValue(forms::RegistryRoot KeyRoot, const std::string& Key,
                            const std::string& ValueName, std::string& KeyVal);

 private:
    frmAbout();

    // The state of design time.
    void setTexts();
    void layOut();

    void Form_Load();
    void cmdOK_Click();
    void cmdSysInfo_Click();
    void StartSysInfo();
    void onTop(bool value);
};

}  // namespace huebrush::addin
