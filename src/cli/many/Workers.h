// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace huebrush::cli {

/// What a worker does with a task: its answer.
using Work = std::function<std::string(std::size_t task)>;
/// What is done with an answer; there is none when the worker's process died of the task.
using Answered = std::function<void(std::size_t task, std::optional<std::string> answer)>;

/// Has tasks done by some processes side by side: copies of this one, so that each has a forms
/// runtime of its own, and none is harmed by what another one dies of. They end with this process.
/// The answers come in this one, in the order in which they are ready.
///
/// Interrupted when a signal that ends a program has come: the workers have ended then, too, and
/// every task that has an answer was answered. Failure when no process can be started.
void runByWorkers(const std::vector<std::size_t>& tasks, std::size_t workers, const Work& work,
                  const Answered& answered);

}  // namespace huebrush::cli
