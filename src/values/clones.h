// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Before a function that loops over many points: it is compiled for each generation of the processor,
/// everything that it calls inlined, and the program takes the one for the machine that it runs on. All
/// give the same bits. Nothing but speed is lost where a compiler or a sanitizer has no such thing.
#if defined(__x86_64__) && defined(__linux__) && defined(__GNUC__) && !defined(__clang__) &&                 \
    defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define COMFORTICS_CLONES __attribute__((target_clones("avx512f", "avx2", "default"), flatten, noinline))
#define COMFORTICS_HAS_CLONES 1
#else
#define COMFORTICS_CLONES
#define COMFORTICS_HAS_CLONES 0
#endif

/// Before a function that loops over many points with fused multiplications and additions, which is called
/// only where COMFORTICS_HAS_FUSED is true: the processor has them.
#if COMFORTICS_HAS_CLONES
#define COMFORTICS_FUSED __attribute__((target("avx2,fma"), flatten, noinline))
#define COMFORTICS_HAS_FUSED (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
#else
#define COMFORTICS_FUSED
#define COMFORTICS_HAS_FUSED false
#endif
