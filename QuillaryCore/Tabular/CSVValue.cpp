#include "QuillaryCore/Tabular/CSVValue.h"

#include <chrono>

namespace Quillary {

namespace {

struct ContentHash
{
    std::size_t operator()(const std::string& text) const { return std::hash<std::string>()(text); }
    std::size_t operator()(const Money& amount) const { return std::hash<Money>()(amount); }
    std::size_t operator()(const CSVValue::Number& number) const { return std::hash<std::int64_t>()(number.value); }
    std::size_t operator()(const CSVValue::Rate& rate) const { return std::hash<std::int32_t>()(rate.basisPoints); }
    std::size_t operator()(const CSVValue::Date& date) const
    {
        return date ? std::hash<std::int64_t>()(std::chrono::sys_days(*date).time_since_epoch().count()) : 0;
    }
};

} // namespace

} // namespace Quillary

std::size_t std::hash<Quillary::CSVValue>::operator()(const Quillary::CSVValue& value) const
{
    return std::visit(Quillary::ContentHash(), value.content()) * 31 + value.content().index();
}
