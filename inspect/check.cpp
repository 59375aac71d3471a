#include "inspect/check.h"

#include "inspect/rules.h"
#include "inspect/show.h"
#include "inspect/values.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <iostream>

namespace inspect {
namespace {

enum Status { clean, problems, trouble };

void listRules(bool json, Output &output) {
    if (json) {
        Json document = {{"schema", jsonSchema}, {"rules", Json::array()}};
        for (const Rule &rule : rules())
            document["rules"].push_back(
                {{"rule", rule.name}, {"severity", nameOf(rule.severity)}, {"description", rule.description}});
        output << document.dump(2) << "\n";
        return;
    }
    for (const Rule &rule : rules()) {
        char line[200];
        std::snprintf(line, sizeof line, "%-28s%-9s%s\n", rule.name.data(), nameOf(rule.severity).data(),
                      rule.description.data());
        output << line;
    }
}

std::string lineOf(const Finding &finding, const Output &output) {
    std::string line = escapeText(finding.file) + ": " + finding.path;
    if (finding.offset) {
        char offset[48];
        std::snprintf(offset, sizeof offset, " at %zu (0x%05zx)", *finding.offset, *finding.offset);
        line += offset;
    }
    line += ": ";
    line += output.painted(finding.rule->severity == Severity::error ? Output::Paint::red : Output::Paint::yellow,
                           nameOf(finding.rule->severity));
    line += ' ';
    line += finding.rule->name;
    return line + ": found " + finding.found + "; expected " + finding.expected + '\n';
}

Json jsonOf(const Finding &finding) {
    Json json;
    json["rule"] = finding.rule->name;
    json["severity"] = nameOf(finding.rule->severity);
    json["file"] = escapeText(finding.file);
    json["path"] = finding.path;
    json["offset"] = finding.offset ? Json(*finding.offset) : Json();
    json["found"] = finding.found;
    json["expected"] = finding.expected;
    return json;
}

/// Writes the objects of records one after the other, so that a finding is printed as soon as it is made.
class Report {
public:
    Report(const CheckOptions &options, Output &output) : json_(options.json), output_(output) {
        if (!json_) return;
        const Json secrets = options.secrets ? "shown" : "masked";
        output_ << "{\"schema\": " << std::to_string(jsonSchema) << ", \"secrets\": " << secrets.dump()
                << ", \"records\": [";
    }

    void begin(const std::string &record) {
        isFirstFinding_ = true;
        if (!json_) return;
        output_ << (isFirstRecord_ ? "\n" : ",\n") << "{\"record\": " << Json(escapeText(record)).dump()
                << ", \"findings\": [";
        isFirstRecord_ = false;
    }
    void add(const Finding &finding) {
        if (!json_) output_ << lineOf(finding, output_);
        else output_ << (isFirstFinding_ ? "\n  " : ",\n  ") << jsonOf(finding).dump();
        isFirstFinding_ = false;
    }
    void end(const std::vector<std::string> &examples, const std::vector<std::string> &troubles) {
        if (json_)
            output_ << "], \"examples\": " << Json(examples).dump() << ", \"troubles\": " << Json(troubles).dump()
                    << "}";
    }
    void end() {
        if (json_) output_ << "\n]}\n";
    }

private:
    bool json_;
    Output &output_;
    bool isFirstRecord_ = true;
    bool isFirstFinding_ = true;
};

RuleOptions ruleOptionsOf(const CheckOptions &options) {
    RuleOptions chosen;
    chosen.secrets = options.secrets;
    for (const std::string &name : options.ignored) {
        const Rule *const rule = findRule(name);
        if (rule == nullptr)
            throw InputError("--ignore " + escapeText(name) + ": there is no such rule; expected one of check --list");
        chosen.ignored.insert(rule->name);
    }
    return chosen;
}

void complain(const std::string &message) { std::cerr << "textcfg-inspect: " << message << '\n'; }

} // namespace

int check(const CheckOptions &options, Output &output) {
    const RuleOptions chosen = ruleOptionsOf(options);
    if (options.list) {
        listRules(options.json, output);
        return clean;
    }
    if (options.records.empty()) throw InputError("found no RECORD; expected one or more to check, or --list");
    int status = clean;
    Report report(options, output);
    for (const std::string &record : options.records) {
        std::vector<std::string> examples;
        std::vector<std::string> troubles;
        report.begin(record);
        try {
            InputOptions one = options.input;
            one.record = record;
            const Input input = loadInput(one);
            examples = input.examples();
            for (const std::string &problem : {input.defaults.problem, input.board.problem, input.settingsProblem})
                if (!problem.empty()) troubles.push_back(problem);
            if (!troubles.empty()) status = trouble;
            for (const std::string &problem : troubles) complain(problem);
            const std::vector<std::string> notes = applyRules(input, chosen, [&](const Finding &finding) {
                if (status == clean) status = problems;
                report.add(finding);
            });
            for (const std::string &note : notes) {
                complain("not checked: " + note);
                troubles.push_back("not checked: " + note);
            }
        } catch (const InputError &error) {
            status = trouble;
            complain(error.what());
            troubles.emplace_back(error.what());
        }
        for (std::string &line : troubles) line = escapeText(line);
        report.end(examples, troubles);
    }
    report.end();
    return status;
}

} // namespace inspect
