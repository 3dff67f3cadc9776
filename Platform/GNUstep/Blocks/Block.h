// The two functions of the blocks runtime that Objective-C code calls by name.
//
// A GNUstep method that keeps a block (of an observer, of a completion) keeps the very pointer it is given: hand it a
// copy.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

void* _Block_copy(const void* block);
void _Block_release(const void* block);

#ifdef __cplusplus
}
#endif

#define Block_copy(...) ((__typeof(__VA_ARGS__))_Block_copy((const void*)(__VA_ARGS__)))
#define Block_release(...) _Block_release((const void*)(__VA_ARGS__))
