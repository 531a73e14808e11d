// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/CommandBars.h"
#include "host/Document.h"

namespace huebrush::host {

class Documents {
 public:
    Documents() = default;
    Documents(const Documents&) = delete;
    Documents& operator=(const Documents&) = delete;
    virtual ~Documents() = default;

    /// A new document without a window; it never becomes the active one.
    virtual std::shared_ptr<Document> addHidden() = 0;
};

/// The host's numbers of its built-in dialogs.
namespace DialogId {
constexpr std::int32_t kFormatObject = 960;
}  // namespace DialogId

/// How the user has closed a built-in dialog.
namespace DialogResult {
constexpr std::int32_t kConfirmed = -1;
constexpr std::int32_t kCancelled = 0;
}  // namespace DialogResult

/// One of the host's built-in dialogs.
class Dialog {
 public:
    Dialog() = default;
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    virtual ~Dialog() = default;

    /// Opens the dialog on the current selection and returns a DialogResult when the user has
    /// closed it.
    virtual std::int32_t Show() = 0;
};

class Dialogs {
 public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    virtual std::shared_ptr<Dialog> Item(std::int32_t id) = 0;
};

class Template {
 public:
    Template() = default;
    Template(const Template&) = delete;
    Template& operator=(const Template&) = delete;
    virtual ~Template() = default;

    virtual void Save() = 0;
};

/// The word processor. Everything that the add-in knows of its host, it reads through here.
class Application {
 public:
    Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    virtual ~Application() = default;

    virtual std::string Name() = 0;
    /// Always with a point as the decimal separator ("9.0").
    virtual std::string Version() = 0;
    virtual std::shared_ptr<host::Selection> Selection() = 0;
    /// An error when no document is open.
    virtual std::shared_ptr<Document> ActiveDocument() = 0;
    virtual host::Documents& Documents() = 0;
    virtual host::Dialogs& Dialogs() = 0;
    virtual host::CommandBars& CommandBars() = 0;
    virtual Template& NormalTemplate() = 0;
    virtual void setStatusBar(const std::string& text) = 0;
    /// `System.Cursor` of the host.
    virtual void setCursor(WdCursorType cursor) = 0;
};

}  // namespace huebrush::host
