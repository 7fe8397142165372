#pragma once

#include <memory>

/// Shared ownership of an object of the host's: a copy retains it, the last one frees it.
template <class T>
using CBasePtr = std::shared_ptr<T>;
