// What a shared library exports.
#pragma once

// `QRT_PUBLIC` marks the namespace of a public header, and in it each function that is no member and has its
// body in a source: Clang exports these only if they are marked themselves. A shared library exports what is
// declared there, and nothing else. `QRT_HIDDEN` marks what is declared there for the library only, and
// templates of variables elsewhere, which GCC exports otherwise. Only ELF systems have shared libraries of
// this project.
#ifdef __ELF__
#define QRT_PUBLIC [[gnu::visibility("default")]]
#define QRT_HIDDEN [[gnu::visibility("hidden")]]
#else
#define QRT_PUBLIC
#define QRT_HIDDEN
#endif
