// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "clip/form.h"

namespace Corvane::Print::clip {

#ifdef CORVANE_PRINT_PLAIN
Form g_form = Form::kPlain;
#else
Form g_form = Form::kIndexed;
#endif

}  // namespace Corvane::Print::clip
