// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <com/sun/star/frame/XDesktop2.hpp>

#include "OfficeContext.h"

namespace huebrush::tests {

TEST(OfficeContext, ReachesTheRunningOffice) {
    const auto desktop = libreoffice::createService<com::sun::star::frame::XDesktop2>(
        officeContext(), "com.sun.star.frame.Desktop");
    EXPECT_FALSE(desktop->getComponents()->createEnumeration()->hasMoreElements());
}

}  // namespace huebrush::tests
