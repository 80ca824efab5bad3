#include "frame/orvo_object_uio.h"

namespace orvo {

Value OrvoObjectUIO::Field(const QString& name) const {
    const RecordsetPtr rs = RsFields();
    if (!rs)
        return Value();
    return rs->Field(name);
}

bool OrvoObjectUIO::SetField(const QString& name, const Value& value) {
    const RecordsetPtr rs = RsFields();
    if (!rs)
        return false;
    return rs->SetField(name, value);
}

OrvoObjectUIOPtr AsDataObject(const Value& value) {
    return std::dynamic_pointer_cast<OrvoObjectUIO>(value.toObject());
}

} // namespace orvo
