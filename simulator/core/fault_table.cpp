// SPDX-License-Identifier: MIT
#include "core/fault_table.h"

#include "core/command.h"

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

bool FaultTable::set(const QString& spec) {
    const qsizetype at = spec.indexOf(u'@');
    const QString name = at < 0 ? spec : spec.left(at);
    const QString command = at < 0 ? QString() : spec.sliced(at + 1);
    if (at >= 0 && !Command::isName(command))
        return false;
    if (name == "none"_L1) {
        if (at < 0)
            faults_.clear();
        else
            faults_.remove(command);
        return true;
    }
    const std::optional<Fault> fault = Fault::parse(name);
    if (fault)
        faults_.insert(command, *fault);
    return fault.has_value();
}

std::optional<Fault> FaultTable::of(const QString& command) const {
    for (const QString& key : {command, QString()}) {
        const auto found = faults_.constFind(key);
        if (found != faults_.cend())
            return *found;
    }
    return std::nullopt;
}

QStringList FaultTable::specs() const {
    QStringList specs;
    for (auto entry = faults_.cbegin(); entry != faults_.cend(); ++entry)
        specs.append(entry.key().isEmpty() ? entry->toString()
                                           : entry->toString() + u'@' + entry.key());
    return specs;
}

} // namespace tarnwick::simulator
