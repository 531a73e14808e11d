// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/uno/Any.hxx>

#include "mapping/OfficeFill.h"

namespace huebrush::libreoffice {

/// A gradient as the office hands it out. A value of another type is read as the default gradient.
mapping::OfficeGradient gradientOf(const com::sun::star::uno::Any& value);

/// A gradient as the office takes it. An office that knows no stops gets the start and end colour.
com::sun::star::uno::Any officeValueOf(const mapping::OfficeGradient& gradient);

/// Whether the office keeps both as the same gradient.
bool isSameGradient(const com::sun::star::uno::Any& a, const com::sun::star::uno::Any& b);

}  // namespace huebrush::libreoffice
