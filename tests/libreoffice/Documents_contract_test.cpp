// SPDX-License-Identifier: MPL-2.0

#include "DocumentsHost.h"

namespace huebrush::host {

INSTANTIATE_TEST_SUITE_P(WriterOutsideHandlers, HostContract, testing::Values([] {
                             return std::make_unique<tests::DocumentsHost>(
                                 tests::DocumentsHost::Seen::outside);
                         }));
INSTANTIATE_TEST_SUITE_P(WriterInAHandler, HostContract, testing::Values([] {
                             return std::make_unique<tests::DocumentsHost>(
                                 tests::DocumentsHost::Seen::inHandler);
                         }));

}  // namespace huebrush::host
