// SPDX-License-Identifier: MIT
#include "core/faults.h"

#include "core/command.h"
#include "core/moment.h"

#include <QStringList>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

std::optional<Fault> Fault::parse(const QString& text) {
    if (QStringList({u"hang"_s, u"garbage"_s, u"flood"_s, u"error"_s, u"crash"_s}).contains(text))
        return Fault{.text = text, .delay = {}};
    bool isNumber = false;
    const auto delay = timeSpan(text.section(u':', 1).toDouble(&isNumber));
    if (!text.startsWith("slow:"_L1) || !isNumber || !delay)
        return std::nullopt;
    return Fault{.text = text, .delay = delay};
}

bool Faults::set(const QString& spec) {
    const QString name = spec.section(u'@', 0, 0);
    const QString command = spec.section(u'@', 1);
    if (spec.contains(u'@') && !Command::isName(command))
        return false;
    if (name == "none"_L1) {
        faults_.removeIf(
            [&command](const auto& entry) { return command.isEmpty() || entry.key() == command; });
        return true;
    }
    const std::optional<Fault> fault = Fault::parse(name);
    if (fault)
        faults_.insert(command, *fault);
    return fault.has_value();
}

std::optional<Fault> Faults::of(const QString& command) const {
    for (const QString& key : {command, QString()}) {
        if (faults_.contains(key))
            return faults_.value(key);
    }
    return std::nullopt;
}

QStringList Faults::specs() const {
    QStringList specs;
    for (auto entry = faults_.cbegin(); entry != faults_.cend(); ++entry)
        specs.append(entry->text + (entry.key().isEmpty() ? QString() : u'@' + entry.key()));
    return specs;
}

} // namespace tarnwick::simulator
