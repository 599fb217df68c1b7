#pragma once

// What nearly every test includes, parsed once; see QuillaryCore/Precompiled.h.

#include "QuillaryCore/Precompiled.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
