#pragma once

#include "QuillaryCore/Store/Connection.h"
#include "QuillaryCore/Store/Statement.h"

#include <string>

namespace Quillary {

/// How SQLite would answer a statement, a line for each table that it goes through.
inline std::string queryPlan(Connection& connection, const std::string& sql)
{
    std::string plan;
    Statement statement(connection, "EXPLAIN QUERY PLAN " + sql);
    while (statement.step()) {
        plan.append(statement.text(3)).append("\n");
    }
    return plan;
}

} // namespace Quillary
