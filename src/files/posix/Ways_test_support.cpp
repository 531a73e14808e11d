// SPDX-License-Identifier: MPL-2.0

#include "files/FilesContract.h"
#include "files/posix/RefusedCalls_test_support.h"

namespace huebrush::files {

const std::vector<Way>& waysOfThisSystem() {
    const auto without = [](const std::vector<Refusal>& refusals) {
        return [&](const std::function<void()>& body) { withRefused(refusals, body); };
    };
    static const std::vector<Refusal> kNone;
    static const std::vector<Way> ways{{"all that there is", without(kNone)},
                                       {"no files without names", without(kNoNamelessFiles)},
                                       {"no exchange", without(kNoExchange)},
                                       {"plain renames only", without(kPlainRenamesOnly)}};
    return ways;
}

}  // namespace huebrush::files
