#pragma once

// KTO_THREAD_SANITIZER is defined when the thread sanitizer checks this build. It does not see into
// Qt, which is built without it, and so must be told what Qt does to order threads.

#if defined(__SANITIZE_THREAD__)
#define KTO_THREAD_SANITIZER
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KTO_THREAD_SANITIZER
#endif
#endif
