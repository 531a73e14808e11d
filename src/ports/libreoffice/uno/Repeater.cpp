// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/uno/Repeater.h"

#include <condition_variable>
#include <mutex>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/MainThread.h"

namespace huebrush::libreoffice {

Repeater::Repeater(const ContextReference& context, std::chrono::milliseconds interval,
                   std::function<void()> work)
    : thread_([context, interval, work = std::move(work)](const std::stop_token& ended) {
          std::mutex mutex;
          std::condition_variable_any waiting;
          std::unique_lock lock(mutex);
          while (!ended.stop_requested()) {
              waiting.wait_for(lock, ended, interval, [] { return false; });
              if (ended.stop_requested()) return;
              ignoringOffice([&] { postToMainThread(context, work); });
          }
      }) {}

}  // namespace huebrush::libreoffice
