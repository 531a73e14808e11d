// SPDX-License-Identifier: MPL-2.0

#include "protocol/Job.h"

#include <limits>

#include "protocol/JsonNumber.h"

namespace huebrush::protocol {

namespace {

using nlohmann::json;
using nlohmann::ordered_json;

const char* nameOf(batch::Message::Kind kind) {
    switch (kind) {
        case batch::Message::Kind::information:
            return "information";
        case batch::Message::Kind::warning:
            return "warning";
        default:
            return "error";
    }
}

bool isRowNumber(const json& value) {
    return value.is_number_integer() && value >= 1 &&
           value <= std::numeric_limits<std::int32_t>::max();
}

/// A line of a plan; nothing to do where "new" is missing or null.
void addPlanRow(const json& line, std::vector<batch::RowEdit>& rows) {
    if (!line.is_object()) throw ParseError("a row of the plan is not an object");
    const auto row = line.find("row");
    if (row == line.end() || !isRowNumber(*row)) {
        throw ParseError("a row of the plan has no row number");
    }
    const auto wanted = line.find("new");
    if (wanted == line.end() || wanted->is_null()) return;
    batch::RowEdit edit{row->get<std::int32_t>(), editFromJson(*wanted), std::nullopt};
    const auto fill = line.find("fill");
    if (fill != line.end()) edit.expected = fillFromJson(*fill);
    rows.push_back(std::move(edit));
}

/// Plans of the first versions have none.
void requireKnownVersion(const json& plan) {
    const auto version = plan.is_object() ? plan.find("version") : plan.end();
    if (!plan.is_object() || version == plan.end()) return;
    const auto number = int32FromJson(*version);
    if (!number || *number < 1) throw ParseError("the plan's version must be a whole number");
    if (*number > kListingVersion) {
        throw ParseError("the plan was made by a newer version of Huebrush");
    }
}

void addPlan(const json& plan, std::vector<batch::RowEdit>& rows) {
    if (plan.is_null()) return;
    requireKnownVersion(plan);
    const auto lines = plan.is_object() ? plan.find("rows") : plan.end();
    if (!plan.is_object() || lines == plan.end() || !lines->is_array()) {
        throw ParseError("the plan has no rows; it must be what \"huebrush fills --json\" prints");
    }
    for (const json& line : *lines) addPlanRow(line, rows);
}

}  // namespace

json toJson(const Job& job) {
    return {{"input", job.input},
            {"name", job.name},
            {"inputUrl", job.inputUrl},
            {"output", job.output},
            {"outputUrl", job.outputUrl},
            {"filter", job.filter},
            {"password", job.password},
            {"maps", job.maps},
            {"rows", job.rows},
            {"plan", job.plan},
            {"palette", job.palette},
            {"mayBeFewer", job.mayBeFewer},
            {"tolerance", job.scope.tolerance},
            {"gradients", job.scope.gradients},
            {"patterns", job.scope.patterns},
            {"lines", job.scope.lines},
            {"mayBeMissing", job.scope.mayBeMissing}};
}

Job jobFromJson(const json& value) {
    return {value.at("input").get<std::string>(),
            value.at("name").get<std::string>(),
            value.at("inputUrl").get<std::string>(),
            value.at("output").get<std::string>(),
            value.at("outputUrl").get<std::string>(),
            value.at("filter").get<std::string>(),
            value.at("password").get<std::string>(),
            value.at("maps").get<std::vector<std::string>>(),
            value.at("rows").get<std::vector<std::string>>(),
            value.at("plan"),
            value.at("palette"),
            value.at("mayBeFewer").get<bool>(),
            {value.at("tolerance").get<double>(), value.at("gradients").get<bool>(),
             value.at("patterns").get<bool>(), value.at("lines").get<bool>(),
             value.at("mayBeMissing").get<bool>()}};
}

batch::RecolorRequest requestOf(const Job& job) {
    batch::RecolorRequest request;
    request.scope = job.scope;
    addPlan(job.plan, request.rows);
    for (const std::string& map : job.maps) request.mappings.push_back(mappingFromText(map));
    for (const std::string& row : job.rows) request.rows.push_back(rowEditFromText(row));
    if (!job.palette.is_null()) {
        request.palette.emplace(batch::PaletteFills{{}, job.mayBeFewer});
        for (const json& each : job.palette) request.palette->fills.push_back(fillFromJson(each));
    }
    return request;
}

ordered_json toJson(const std::vector<batch::FillRow>& rows) {
    ordered_json lines = ordered_json::array();
    for (const batch::FillRow& row : rows) {
        lines.push_back({{"row", row.row},
                         {"shapes", row.shapes},
                         {"fill", toJson(row.fill)},
                         {"new", nullptr}});
    }
    return {{"version", kListingVersion}, {"rows", std::move(lines)}};
}

ordered_json toJson(const batch::RecolorResult& result) {
    ordered_json skipped = ordered_json::array();
    for (const batch::Skipped& each : result.skipped) {
        skipped.push_back({{"row", each.row}, {"shapes", each.shapes}, {"reason", each.reason}});
    }
    return {{"shapes", result.shapes},
            {"groups", result.groups},
            {"changed", result.changed},
            {"lines", result.lines},
            {"skipped", std::move(skipped)}};
}

ordered_json toJson(const batch::StoredResult& result) {
    ordered_json differences = ordered_json::array();
    for (const batch::StoredDifference& each : result.differences) {
        differences.push_back({{"row", each.row},
                               {"shapes", each.shapes},
                               {"asked", toJson(each.asked)},
                               {"stored", toJson(each.stored)},
                               {"reason", each.reason}});
    }
    return {{"confirmed", result.confirmed},
            {"notFound", result.notFound},
            {"linesConfirmed", result.linesConfirmed},
            {"linesOtherwise", result.linesOtherwise},
            {"differences", std::move(differences)}};
}

namespace message {

ordered_json started() {
    return {{"started", true}};
}

ordered_json progress(std::size_t done, std::size_t total) {
    return {{"progress", {{"done", done}, {"total", total}}}};
}

ordered_json result(ordered_json value, const std::vector<batch::Message>& boxes) {
    ordered_json messages = ordered_json::array();
    for (const batch::Message& box : boxes) {
        messages.push_back({{"kind", nameOf(box.kind)}, {"text", box.text}});
    }
    value["messages"] = std::move(messages);
    return {{"result", std::move(value)}};
}

ordered_json failure(const std::string& text) {
    return {{"failure", text}};
}

}  // namespace message

}  // namespace huebrush::protocol
