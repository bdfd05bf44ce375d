#include "platform/runtime/NSObject.h"

#include "platform/runtime/AssociatedObjects.h"

NSObject::NSObject() = default;
NSObject::~NSObject() = default;
