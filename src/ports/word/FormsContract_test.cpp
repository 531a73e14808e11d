// SPDX-License-Identifier: MPL-2.0

#include "forms/FormsContract.h"

#include "forms/FieldsContract.h"
#include "forms/KeysContract.h"
#include "forms/MenuContract.h"
#include "ports/word/WindowsPort_test_support.h"

namespace huebrush::forms::contract {

INSTANTIATE_TYPED_TEST_SUITE_P(Windows, FormsContract, word::WindowsPort);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, FieldsContract, word::WindowsPort);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, KeysContract, word::WindowsPort);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, MenuContract, word::WindowsPort);

}  // namespace huebrush::forms::contract
