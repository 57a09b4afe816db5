#include "data/transfer/foreign_objects.h"

#include "data/transfer/stored_tables.h"

namespace chengheng {

Status foreignObjects(Engine& engine, std::vector<ForeignObject>& objects) {
    objects.clear();
    return forEachRow(engine, engine.dialect().otherObjects, {}, [&objects](const Cursor& row) {
        if (row.text(0) != "index")
            objects.push_back({row.text(0) == "view", std::string(row.text(1))});
        return Status::done();
    });
}

}  // namespace chengheng
