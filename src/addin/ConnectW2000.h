#pragma once

#include <cstdint>
#include <memory>

#include "addin/frmAbout.h"
#include "error/mError.h"
#include "host/Application.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::addin {

/// The entry object: what the host makes when it loads the add-in. From OnConnection to
/// OnDisconnection it owns the command bar with its three buttons and the recolour dialog.
class ConnectW2000 {
 public:
    ConnectW2000() = default;
    ConnectW2000(const ConnectW2000&) = delete;
    ConnectW2000& operator=(const ConnectW2000&) = delete;
    ~ConnectW2000();

    /// The host has loaded the add-in. Another host than "Microsoft Word" is left alone, one older
    /// than 8.0 refused with a message, one newer than 9.0 served without the recolour dialog.
    /// Never fails towards the host.
    void OnConnection(host::Application& Application);
    /// The host unloads the add-in: an open dialog is closed, the bar's place saved, and what was
    /// added is removed. Each operation stands alone; reports nothing. Does nothing when not
    /// connected.
    void OnDisconnection();

    /// The host application while connected, otherwise nothing.
    host::Application* WApp() const { return WApp_; }
    /// The recolour dialog while it is open, otherwise nothing.
    const std::shared_ptr<recolor::frmEditGraphic>& dialog() const { return dialog_; }
    /// The about box while it is open, otherwise nothing.
    const std::shared_ptr<frmAbout>& about() const { return about_; }

 private:
    struct ButtonDesign;

    void connect(host::Application& application);
    host::CommandBarPointer CreateToolbar(host::Application& application);
    void createBar(error::Steps& step, host::Application& application, host::CommandBarPointer& bar,
                   bool& changed);
    void primeFaces(error::Steps& step, const host::CommandBarPointer& bar, std::int16_t& icon);
    void createButton(error::Steps& step, host::CommandBar& bar, const ButtonDesign& design,
                      std::int16_t& icon, bool& changed);
    void connectButton(const ButtonDesign& design, host::CommandBarControl& button);
    void savePosition();
    void removeFromBar();
    void releaseBar();
    void closeDialogs();

    void tbSellFill_Click();
    void tbSellLine_Click();
    void tbChangeFillWizard_Click();
    void showAbout();

    host::Application* WApp_ = nullptr;
    host::CommandBarPointer cbToolbar_;
    host::CommandBarControlPointer tbSellFill_;
    host::CommandBarControlPointer tbSellLine_;
    host::CommandBarControlPointer tbChangeFillWizard_;
    bool createdBar_ = false;
    std::shared_ptr<recolor::frmEditGraphic> dialog_;
    std::shared_ptr<frmAbout> about_;
};

}  // namespace huebrush::addin
