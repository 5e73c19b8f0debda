// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Writing rings and the pieces cut from them to wherever they go.
#ifndef CORVANE_PRINT_CLIP_EMIT_H
#define CORVANE_PRINT_CLIP_EMIT_H

#include "clip/piece_sink.h"
#include "clip/records.h"

namespace Corvane::Print::clip {

// The ring as it was given, without anything that a clip inserted.
void emit_ring(const FencePolygon& ring, PieceSink& sink);

// The pieces of a subject whose crossings are marked, in the order in which a walk around it from its start
// vertex enters them. `most_steps` bounds the points of all pieces together, so that no input can make the
// walk go round for ever.
void emit_pieces(const FencePolygon& subject, long long most_steps, PieceSink& sink);

}  // namespace Corvane::Print::clip

#endif
