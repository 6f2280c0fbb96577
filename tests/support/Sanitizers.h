#ifndef IPC2581_TESTS_SUPPORT_SANITIZERS_H
#define IPC2581_TESTS_SUPPORT_SANITIZERS_H

namespace ipc2581::tests {

// Whether a sanitizer watches memory or threads, which makes a test many times slower and keeps what is freed.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool HasSanitizer = true;
#elif defined(__has_feature)
inline constexpr bool HasSanitizer = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
inline constexpr bool HasSanitizer = false;
#endif

}  // namespace ipc2581::tests

#endif
