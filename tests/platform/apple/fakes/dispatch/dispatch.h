// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A FAKE of the system's queues for tests on GNUstep: they can be created and released,
// and run nothing.
#pragma once

struct jx_fake_queue;
typedef jx_fake_queue* dispatch_queue_t;

#define DISPATCH_QUEUE_SERIAL nullptr

dispatch_queue_t dispatch_queue_create(const char* label, const void* attributes);
void dispatch_release(dispatch_queue_t queue);
