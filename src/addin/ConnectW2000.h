// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
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
    struct Construction;

    void connect(host::Application& application);
    void CreateToolbar(host::Application& application, const std::function<bool()>& isConnected);
    void findOrAddBar(Construction& toolbar, host::Application& application);
    void primeFaces(Construction& toolbar);
    void findOrAddButton(Construction& toolbar, const ButtonDesign& design);
    void keepButton(const ButtonDesign& design, host::CommandBarControlPointer button);
    static void restorePosition(Construction& toolbar);
    void savePosition();
    void removeFromBar();
    void releaseBar();
    void closeDialogs();

    void tbSellFill_Click();
    void tbSellLine_Click();
    void tbChangeFillWizard_Click();
    void showAbout();

    host::Application* WApp_ = nullptr;
    /// Counts connections and disconnections: who waits for events sees by it what has become of
    /// its connection.
    std::uint32_t connection_ = 0;
    // Bar and buttons are kept as soon as they exist, so that a disconnection removes them however
    // far the construction has come.
    host::CommandBarPointer cbToolbar_;
    host::CommandBarControlPointer tbSellFill_;
    host::CommandBarControlPointer tbSellLine_;
    host::CommandBarControlPointer tbChangeFillWizard_;
    /// The button of the priming pass, while it is there.
    host::CommandBarControlPointer primingButton_;
    bool createdBar_ = false;
    std::shared_ptr<recolor::frmEditGraphic> dialog_;
    std::shared_ptr<frmAbout> about_;
};

}  // namespace huebrush::addin
