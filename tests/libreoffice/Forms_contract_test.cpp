// SPDX-License-Identifier: MPL-2.0

#include "OfficePort.h"
#include "forms/FieldsContract.h"
#include "forms/FormsContract.h"
#include "forms/KeysContract.h"
#include "forms/MenuContract.h"

namespace huebrush::forms::contract {

INSTANTIATE_TYPED_TEST_SUITE_P(Office, FormsContract, tests::OfficePort);
INSTANTIATE_TYPED_TEST_SUITE_P(Office, FieldsContract, tests::OfficePort);
INSTANTIATE_TYPED_TEST_SUITE_P(OnScreen, KeysContract, tests::OnScreenPort);
INSTANTIATE_TYPED_TEST_SUITE_P(OnScreen, MenuContract, tests::OnScreenPort);

}  // namespace huebrush::forms::contract
