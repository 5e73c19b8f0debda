// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The engine comes in two forms that give the same results to the last bit. The plain one compares every edge
// with every other and keeps rings and links as records (links, verdict, emit); the indexed one looks only
// where edges can meet, and keeps rings as rows of points and links beside them (indexed_*). A doubt about
// the index is settled by building with CORVANE_PRINT_PLAIN.
#ifndef CORVANE_PRINT_CLIP_FORM_H
#define CORVANE_PRINT_CLIP_FORM_H

namespace Corvane::Print::clip {

enum class Form { kIndexed, kPlain };

// What the exported calls use. Set by the build; only tests write it, to compare the two.
extern Form g_form;

}  // namespace Corvane::Print::clip

#endif
