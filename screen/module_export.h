#pragma once

/// Marks the classes that the module shows to the host.
#if defined(_WIN32)
#define CHENGHENG_MODULE_EXPORT
#else
#define CHENGHENG_MODULE_EXPORT __attribute__((visibility("default")))
#endif
