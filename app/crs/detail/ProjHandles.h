// Owning handles of PROJ's objects.
#pragma once

#include <proj.h>

#include <memory>

namespace app::detail {

struct ContextDeleter {
    void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
};
using ContextHandle = std::unique_ptr<PJ_CONTEXT, ContextDeleter>;

struct PjDeleter {
    void operator()(PJ* object) const { proj_destroy(object); }
};
using PjHandle = std::unique_ptr<PJ, PjDeleter>;

struct PjListDeleter {
    void operator()(PJ_OBJ_LIST* list) const { proj_list_destroy(list); }
};
using PjListHandle = std::unique_ptr<PJ_OBJ_LIST, PjListDeleter>;

struct OperationFactoryDeleter {
    void operator()(PJ_OPERATION_FACTORY_CONTEXT* factory) const {
        proj_operation_factory_context_destroy(factory);
    }
};
using OperationFactoryHandle =
    std::unique_ptr<PJ_OPERATION_FACTORY_CONTEXT, OperationFactoryDeleter>;

// A context that writes nothing to stderr and never uses the network. A context and its objects
// belong to one thread at a time.
ContextHandle MakeContext();

// The object's EPSG code; 0 when it has none.
int EpsgCodeOf(const PJ* object);

// The EPSG register's system of a code; null when it has none.
PjHandle FromRegister(PJ_CONTEXT* context, int code);

// The axes of a geographic or projected system, and of what a bound one is bound from.
struct Axes {
    double unit = 1.0;  // metres, or radians, per unit
    bool areAngles = false;
};
Axes AxesOf(PJ_CONTEXT* context, const PJ* crs);

}  // namespace app::detail
