#include "check/hearing.h"

#include <algorithm>

namespace plxclip::check {

namespace {

using format::LossReason;
using format::keys::Need;
using format::keys::Shape;

std::string parentOf(const std::string& path)
{
    return path.empty() ? path : path.substr(0, path.rfind('/'));
}

bool isRequired(const format::Loss& loss)
{
    return loss.row != nullptr && !loss.isElement && loss.row->need == Need::required;
}

Heard heard(const format::Loss& loss)
{
    if (loss.reason == LossReason::missing) {
        return {loss, loss.path + '/' + std::string(loss.key), loss.path, isRequired(loss)};
    }
    return {loss, loss.path, parentOf(loss.path), isRequired(loss)};
}

// It keeps what follows it from being read.
bool endsVibrato(const format::Loss& loss)
{
    return loss.reason == LossReason::notAccepted && loss.shape->id == Shape::Id::vibrato;
}

} // namespace

bool isBelow(std::string_view path, std::string_view outer)
{
    return path.size() > outer.size() && path.starts_with(outer) && path[outer.size()] == '/';
}

void Hearing::refused(const format::Defect& told)
{
    defect = told;
    losses.clear();
    taken.clear();
}

void Hearing::lost(const format::Loss& loss)
{
    if (loss.reason == LossReason::object) {
        lostObject(loss);
        return;
    }
    if (loss.reason == LossReason::notLookedAt) {
        forget(parentOf(loss.path), loss.path);
    } else if (endsVibrato(loss)) {
        for (const char* const curve : {"/rates", "/depths"}) {
            forget(parentOf(loss.path), parentOf(loss.path) + curve);
        }
    }
    losses.push_back(heard(loss));
}

// All that was told within an object was told last, up to its end.
std::vector<Heard>::iterator Hearing::firstWithin(std::string_view object)
{
    return std::find_if_not(losses.rbegin(), losses.rend(),
                            [object](const Heard& each) { return isBelow(each.path, object); })
        .base();
}

void Hearing::forget(std::string_view outer, std::string_view lost)
{
    const auto isLost = [lost](const Heard& each) { return isBelow(each.path, lost); };
    losses.erase(std::remove_if(firstWithin(outer), losses.end(), isLost), losses.end());
}

void Hearing::lostObject(const format::Loss& object)
{
    const auto begin = firstWithin(object.path);
    std::string emptied; // a list of which nothing is left
    for (auto each = begin; each != losses.end(); ++each) {
        if (each->loss.reason == LossReason::tooFew && each->owner == object.path) {
            emptied = each->path;
        }
    }
    const auto isToStay = [&](const Heard& each) {
        return (each.isCause && each.owner == object.path) ||
               (!emptied.empty() && isBelow(each.path, emptied));
    };
    const auto end = std::stable_partition(begin, losses.end(), isToStay);
    losses.erase(end, losses.end());
    for (auto each = begin; each != losses.end(); ++each) {
        each->owner = parentOf(object.path);
        each->isCause = isRequired(object);
    }
}

} // namespace plxclip::check
