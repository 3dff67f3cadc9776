// The runtime that compiled blocks call. GNUstep's base library exports a _Block_copy that copies nothing, and which
// one an image finds depends on the order of loading: so each image carries this one, hidden.
//
// The layouts and flags are those of the compiler's block ABI. Whether a block lies on the heap is told by its flags
// and not by its class, because a block copied in one image may be copied again or released in another.
#import <Foundation/NSObject.h>

#include "Block.h"

#include <stdlib.h>
#include <string.h>

enum {
    referenceCountMask = 0xfffe,
    oneReference = 2,
    isOnHeap = 1 << 24,
    hasCopyAndDispose = 1 << 25,
    isGlobal = 1 << 28,
};

// What a captured variable is, as the compiler's helpers say it.
enum {
    fieldIsObject = 3,
    fieldIsBlock = 7,
    fieldIsByref = 8,
    fieldIsWeak = 16,
};

struct BlockDescriptor {
    unsigned long reserved;
    unsigned long size;
    // Present only in blocks with hasCopyAndDispose.
    void (*copy)(void *destination, const void *source);
    void (*dispose)(const void *block);
};

struct BlockLayout {
    void *isa;
    int flags;
    int reserved;
    void (*invoke)(void);
    struct BlockDescriptor *descriptor;
};

// A __block variable: it moves to the heap with the first block that is copied, and forwarding follows it.
struct Byref {
    void *isa;
    struct Byref *forwarding;
    int flags;
    unsigned int size;
    // Present only in variables with hasCopyAndDispose.
    void (*keep)(struct Byref *destination, struct Byref *source);
    void (*destroy)(struct Byref *byref);
};

void *_NSConcreteStackBlock[32];
void *_NSConcreteGlobalBlock[32];
static void *heapBlockClass[32];

void _Block_object_assign(void *destination, const void *object, int field);
void _Block_object_dispose(const void *object, int field);

static void retainCounted(int *flags) {
    __atomic_add_fetch(flags, oneReference, __ATOMIC_RELAXED);
}

// Whether that was the last reference.
static BOOL releaseCounted(int *flags) {
    return (__atomic_sub_fetch(flags, oneReference, __ATOMIC_ACQ_REL) & referenceCountMask) == 0;
}

void *_Block_copy(const void *source) {
    struct BlockLayout *block = (struct BlockLayout *)source;
    if (block == NULL || (block->flags & isGlobal) != 0) {
        return block;
    }
    if ((block->flags & isOnHeap) != 0) {
        retainCounted(&block->flags);
        return block;
    }
    struct BlockLayout *copy = malloc(block->descriptor->size);
    if (copy == NULL) {
        return NULL;
    }
    memcpy(copy, block, block->descriptor->size);
    copy->isa = heapBlockClass;
    copy->flags = (block->flags & ~(referenceCountMask | 1)) | isOnHeap | oneReference;
    if ((copy->flags & hasCopyAndDispose) != 0) {
        copy->descriptor->copy(copy, block);
    }
    return copy;
}

void _Block_release(const void *source) {
    struct BlockLayout *block = (struct BlockLayout *)source;
    if (block == NULL || (block->flags & isOnHeap) == 0 || !releaseCounted(&block->flags)) {
        return;
    }
    if ((block->flags & hasCopyAndDispose) != 0) {
        block->descriptor->dispose(block);
    }
    free(block);
}

static struct Byref *copyByref(struct Byref *source) {
    struct Byref *current = source->forwarding;
    if ((current->flags & isOnHeap) != 0) {
        retainCounted(&current->flags);
        return current;
    }
    struct Byref *copy = malloc(current->size);
    if (copy == NULL) {
        abort();
    }
    memcpy(copy, current, current->size);
    // One reference for the block, one for the scope that declared the variable: it disposes of it when it ends.
    copy->flags = (current->flags & ~(referenceCountMask | 1)) | isOnHeap | (2 * oneReference);
    copy->forwarding = copy;
    current->forwarding = copy;
    if ((copy->flags & hasCopyAndDispose) != 0) {
        copy->keep(copy, current);
    }
    return copy;
}

static void releaseByref(struct Byref *variable) {
    struct Byref *byref = variable->forwarding;
    if ((byref->flags & isOnHeap) == 0 || !releaseCounted(&byref->flags)) {
        return;
    }
    if ((byref->flags & hasCopyAndDispose) != 0) {
        byref->destroy(byref);
    }
    free(byref);
}

void _Block_object_assign(void *destination, const void *object, int field) {
    const void *kept = object;
    switch (field) {
    case fieldIsObject:
        kept = [(id)object retain];
        break;
    case fieldIsBlock:
        kept = _Block_copy(object);
        break;
    case fieldIsByref:
    case fieldIsByref | fieldIsWeak:
        kept = copyByref((struct Byref *)object);
        break;
    default:
        // What a __block variable holds is not retained.
        break;
    }
    memcpy(destination, &kept, sizeof kept);
}

void _Block_object_dispose(const void *object, int field) {
    switch (field) {
    case fieldIsObject:
        [(id)object release];
        break;
    case fieldIsBlock:
        _Block_release(object);
        break;
    case fieldIsByref:
    case fieldIsByref | fieldIsWeak:
        releaseByref((struct Byref *)object);
        break;
    default:
        break;
    }
}
