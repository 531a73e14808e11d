// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Error.h"
#include "base/Event.h"
#include "base/Picture.h"
#include "forms/FileDialog.h"
#include "forms/System.h"

namespace huebrush::forms {

class Control;
class Form;
class PopupMenu;

/// The button that closed a message box, with the classic numbers.
enum class MsgBoxResult : std::int32_t {
    ok = 1,
    cancel = 2,
    abort = 3,
    retry = 4,
    ignore = 5,
    yes = 6,
    no = 7,
};

/// A message box's style is the sum of its buttons and its icon, as the system has always
/// written it: 16 critical with OK, 48 exclamation with OK, 64 information with OK, 50 exclamation
/// with Abort, Retry and Ignore. The first button is the default.
namespace MsgBoxStyle {
inline constexpr std::int32_t kOk = 0;
inline constexpr std::int32_t kOkCancel = 1;
inline constexpr std::int32_t kAbortRetryIgnore = 2;
inline constexpr std::int32_t kYesNoCancel = 3;
inline constexpr std::int32_t kYesNo = 4;
inline constexpr std::int32_t kButtonsMask = 0xF;
inline constexpr std::int32_t kCritical = 16;
inline constexpr std::int32_t kQuestion = 32;
inline constexpr std::int32_t kExclamation = 48;
inline constexpr std::int32_t kInformation = 64;
inline constexpr std::int32_t kIconMask = 0xF0;
}  // namespace MsgBoxStyle

/// The transfer area for pictures. What was in it before is lost.
class Clipboard {
 public:
    Clipboard() = default;
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    virtual ~Clipboard() = default;

    virtual void Clear() = 0;
    /// The picture on the clipboard; no picture where there is none.
    virtual base::Picture GetData() = 0;
    virtual void SetData(const base::Picture& picture) = 0;
};

/// A transfer area of our own: the user's clipboard keeps what the user has put there.
class PrivateClipboard final : public Clipboard {
 public:
    void Clear() override { picture_ = {}; }
    base::Picture GetData() override { return picture_; }
    void SetData(const base::Picture& picture) override { picture_ = picture; }

 private:
    base::Picture picture_;
};

/// The user's own settings, kept from run to run, by application, section and key.
class Settings {
 public:
    Settings() = default;
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;
    virtual ~Settings() = default;

    /// Nothing when the setting was never saved.
    virtual std::optional<std::string> GetSetting(const std::string& application,
                                                  const std::string& section,
                                                  const std::string& key) = 0;
    virtual void SaveSetting(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& value) = 0;
};

/// What the running component knows of itself and of its user.
class Component {
 public:
    Component() = default;
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    virtual ~Component() = default;

    /// Such as "1.0.0".
    virtual std::string version() const = 0;
    /// The component's file name without its ending.
    virtual std::string name() const = 0;
    /// The folder that holds the component, without a separator at its end.
    virtual std::string folder() const = 0;
    /// The folder that is the component's own for files of this user, which are kept when the
    /// component is updated. It may not exist yet. Without a separator at its end, too.
    virtual std::string userFolder() const = 0;
    virtual std::string temporaryFolder() const = 0;
    /// Where the module that needs a temporary file keeps its name for as long as the component is
    /// loaded; empty at first.
    std::string& temporaryFile() const { return temporaryFile_; }
    /// The icon with this number; no picture where there is none.
    virtual base::Picture icon(std::int32_t number) const = 0;
    /// The decimal separator of the user's locale.
    virtual char decimalSeparator() const = 0;

 private:
    mutable std::string temporaryFile_;
};

/// The platform under the dialogs: boxes, menus, clipboard, settings, the event pump. It is the one
/// process-wide thing of this program: the entry point sets it for its lifetime with a
/// RuntimeScope, and each test sets a fresh one.
class Runtime {
 public:
    Runtime() = default;
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;
    virtual ~Runtime() = default;

    /// The runtime in force. REQUIRES: a RuntimeScope is alive (an internal error otherwise).
    static Runtime& current();

    /// Shows a modal message box and returns the button pressed. `style` as in MsgBoxStyle.
    virtual MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                                const std::string& title) = 0;
    /// Opens the menu at a place of `owner`, in its twips, and returns after it has closed; the
    /// Click of the chosen item is raised before that.
    virtual void PopupMenu(forms::PopupMenu& menu, Control& owner, double x, double y) = 0;
    /// Shows a modal file dialog and returns the full path chosen. An error (32755) when the user
    /// cancels it. Some platforms themselves ask whether to replace an existing file.
    virtual std::string ChooseFile(const FileDialog& dialog) = 0;
    /// Draws an icon of the component at the upper left corner of a picture, as `drawIcon` does or
    /// by the platform's own means; what fails leaves the canvas as it is.
    virtual base::Picture DrawIcon(const base::Picture& icon, const base::Picture& canvas);
    /// Lets pending events run: anything may happen meanwhile, even the closing of the caller's own
    /// form.
    virtual void DoEvents() = 0;

    virtual forms::Clipboard& Clipboard() = 0;
    virtual forms::Settings& Settings() = 0;
    virtual const forms::Component& Component() = 0;
    virtual forms::System& System() = 0;

    /// Shows the form on the screen, or hides it. Does nothing where there is no screen.
    virtual void showForm(Form& form, bool modal) = 0;
    virtual void closeForm(Form& form) = 0;
    /// Form::TopMost has changed: keeps the form above all other windows, as far as the platform
    /// has such a level, or does so no more.
    virtual void setTopMost(Form& form, bool topMost) = 0;

    /// Raised with errors that no trap has caught; the entry point connects its reporter.
    base::Event<const base::Error&> UnhandledError;

 private:
    friend class RuntimeScope;
    static Runtime*& slot();
};

/// Makes a runtime the current one for a lifetime, and the previous one current again after it.
class RuntimeScope {
 public:
    explicit RuntimeScope(Runtime& runtime);
    RuntimeScope(const RuntimeScope&) = delete;
    RuntimeScope& operator=(const RuntimeScope&) = delete;
    ~RuntimeScope();

 private:
    Runtime* former_;
};

}  // namespace huebrush::forms
