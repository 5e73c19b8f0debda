// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Names that a file system does not take.
#ifndef CORVANE_PRINT_FILESPEC_AUTO_INCREMENT_H
#define CORVANE_PRINT_FILESPEC_AUTO_INCREMENT_H

#include "corvane/print/types.h"

namespace Corvane::Print {

// Removes every / ? < > * | and " from a text of any length, in place. True when there was one. The
// characters \ and : stay: they part the components of a specification.
bool FURemoveInvalidFileNameCharacters(CPWChar* s);

}  // namespace Corvane::Print

#endif
