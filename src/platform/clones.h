// clones.h - marks a kernel to be compiled for several vector widths, chosen at run time.
// The arithmetic is the same in each: contraction is off, so a clone differs in speed only. Put it
// on plain loops over arrays that the compiler vectorises; it does not carry into callees that are
// not inlined.
#pragma once

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(CANTORIX_NO_CLONES)
#define CANTORIX_CLONES \
  __attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default")))
#else
#define CANTORIX_CLONES
#endif

// Before a loop: no turn reads what another one writes, which the compiler cannot see when one
// array is worked on in several places. Clang would make a refusal to vectorise an error.
#if defined(__GNUC__) && !defined(__clang__)
#define CANTORIX_INDEPENDENT_TURNS _Pragma("GCC ivdep")
#else
#define CANTORIX_INDEPENDENT_TURNS
#endif

// Before an inner loop of few turns that the vectors are to run over, rather than over the loop
// around it: taken apart early, its turns would have to be gathered again.
#if defined(__GNUC__) && !defined(__clang__)
#define CANTORIX_VECTOR_LOOP _Pragma("GCC unroll 1")
#else
#define CANTORIX_VECTOR_LOOP
#endif
