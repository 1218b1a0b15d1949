// Makes values on the other side of a module's border.

#include "samples.h"

/// Returns a value for each position of Sample::values(), then null. It belongs to the caller.
extern "C" Q_DECL_EXPORT Quorvex::Interfaces::IMetadata *makeValue(std::size_t position)
{
    Sample::Values values = Sample::values();
    return position < values.size() ? values[position].release() : nullptr;
}
