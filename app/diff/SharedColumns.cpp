#include "app/diff/SharedColumns.h"

#include "app/base/Errors.h"
#include "app/query/ColumnNames.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace app {
namespace {

std::size_t PlaceOf(const std::string& name, const std::vector<LayerColumn>& columns,
                    const std::string& subject, const char* option) {
    const std::optional<std::size_t> at = FindColumn(columns, name);
    if (!at) {
        throw Failure(subject + ": " + option + ": " + NoSuchColumn(columns, name));
    }
    return *at;
}

class Sharing {
public:
    Sharing(const std::vector<LayerColumn>& left, const std::vector<LayerColumn>& right,
            const SharedColumnsRequest& request)
        : left_(left), right_(right), request_(request) {}

    SharedColumns Found() {
        if (request_.select.empty()) {
            ShareAll();
        }
        for (const std::string& name : request_.select) {
            ShareNamed(name, "--select");
        }
        if (!request_.key.empty()) {
            shared_.key = ShareNamed(request_.key, "--key");
        }
        return std::move(shared_);
    }

private:
    void ShareAll() {
        std::vector<bool> isShared(right_.size(), false);
        for (std::size_t i = 0; i < left_.size(); ++i) {
            const std::optional<std::size_t> at = FindColumn(right_, left_[i].name);
            if (at && !isShared[*at]) {
                isShared[*at] = true;
                Share(i, *at);
            } else {
                shared_.onlyInLeft.push_back(left_[i].name);
            }
        }
        for (std::size_t i = 0; i < right_.size(); ++i) {
            if (!isShared[i]) {
                shared_.onlyInRight.push_back(right_[i].name);
            }
        }
    }

    std::size_t ShareNamed(const std::string& name, const char* option) {
        const std::size_t left = PlaceOf(name, left_, request_.leftSubject, option);
        const std::size_t right = PlaceOf(name, right_, request_.rightSubject, option);
        const auto found = std::ranges::find(shared_.inLeft, left);
        if (found != shared_.inLeft.end()) {
            return static_cast<std::size_t>(found - shared_.inLeft.begin());
        }
        Share(left, right);
        return shared_.names.size() - 1;
    }

    void Share(std::size_t left, std::size_t right) {
        shared_.names.push_back(left_[left].name);
        shared_.inLeft.push_back(left);
        shared_.inRight.push_back(right);
    }

    const std::vector<LayerColumn>& left_;
    const std::vector<LayerColumn>& right_;
    const SharedColumnsRequest& request_;
    SharedColumns shared_;
};

bool IsEmpty(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    return std::holds_alternative<std::monostate>(value) || (text != nullptr && text->empty());
}

// Truth values are 1 and 0.
std::optional<std::int64_t> WholeOf(const Value& value) {
    if (const auto* truth = std::get_if<bool>(&value)) {
        return *truth ? 1 : 0;
    }
    const auto* whole = std::get_if<std::int64_t>(&value);
    return whole != nullptr ? std::optional(*whole) : std::nullopt;
}

// Whether a whole number and another are equal, also beyond what a double can hold.
bool IsWhole(double real, std::int64_t whole) {
    constexpr double kLimit = 9223372036854775808.0;  // 2 to the 63rd
    return real >= -kLimit && real < kLimit && real == std::trunc(real) &&
           static_cast<std::int64_t>(real) == whole;
}

bool IsSameText(std::string_view left, std::string_view right) {
    if (left == right) {
        return true;
    }
    const ColumnKind kind = KindOfText(left);
    if (kind != KindOfText(right) || (kind != ColumnKind::Time && kind != ColumnKind::DateTime)) {
        return false;
    }
    const auto bare = [](std::string_view text) {
        text.remove_suffix(text.ends_with('Z') ? 1 : 0);
        if (text.find('.') != std::string_view::npos) {
            text = text.substr(0, text.find_last_not_of('0') + 1);
            text.remove_suffix(text.ends_with('.') ? 1 : 0);
        }
        return text;
    };
    return bare(left) == bare(right);
}

}  // namespace

SharedColumns ShareColumns(const std::vector<LayerColumn>& left,
                           const std::vector<LayerColumn>& right,
                           const SharedColumnsRequest& request) {
    return Sharing(left, right, request).Found();
}

bool IsSameValue(const Value& left, const Value& right) {
    if (IsEmpty(left) || IsEmpty(right)) {
        return IsEmpty(left) && IsEmpty(right);
    }
    const auto* leftText = std::get_if<std::string>(&left);
    const auto* rightText = std::get_if<std::string>(&right);
    if (leftText != nullptr || rightText != nullptr) {
        return leftText != nullptr && rightText != nullptr && IsSameText(*leftText, *rightText);
    }
    const std::optional<std::int64_t> leftWhole = WholeOf(left);
    const std::optional<std::int64_t> rightWhole = WholeOf(right);
    if (leftWhole && rightWhole) {
        return *leftWhole == *rightWhole;
    }
    if (!leftWhole && !rightWhole) {
        const double leftReal = std::get<double>(left);
        const double rightReal = std::get<double>(right);
        return leftReal == rightReal || (std::isnan(leftReal) && std::isnan(rightReal));
    }
    return leftWhole ? IsWhole(std::get<double>(right), *leftWhole)
                     : IsWhole(std::get<double>(left), *rightWhole);
}

}  // namespace app
