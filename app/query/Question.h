// A question to the attributes of features, in SQL: pop > 1000 AND name LIKE 'A%'.
#pragma once

#include "app/feature/Feature.h"

#include <memory>
#include <span>
#include <string>

namespace app {

// An expression that SQLite evaluates for one feature after another. It names columns of the layer,
// in any case of ASCII letters, and "rowid" for the feature's number. Null and texts are as in SQL;
// Logical values are 1 and 0 (TRUE and FALSE), dates and times are ISO texts. The expression can
// reach no other table, no file and no setting.
class Question {
public:
    // `subject` names the layer in messages. Throws UsageError for what is no expression, with the
    // expression and a caret below the place; Failure for a column that the layer lacks, with the
    // names there are.
    Question(const std::string& expression, std::span<const LayerColumn> columns,
             const std::string& subject);
    ~Question();
    Question(Question&&) noexcept;
    Question& operator=(Question&&) noexcept;

    // Returns whether the expression is true; it is not when it is null. Throws Failure when it
    // can't be evaluated, as a text that grows too long.
    bool Holds(const Feature& feature);

private:
    class Evaluation;
    std::unique_ptr<Evaluation> evaluation_;
};

}  // namespace app
