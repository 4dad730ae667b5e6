// SPDX-License-Identifier: MIT
#include "faulty_tool.h"

#include "platform/platform.h"

#include <QFile>

#include <array>
#include <filesystem>

namespace tarnwick::soak {

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned percentOfGoodAnswers = 80;

// Faults that last until the time limit are rare, or the test would take hours.
constexpr std::array<const char*, 10> quickFaults = {
    "error", "fail", "half",       "invalid", "nested",
    "crash", "slow", "grandchild", "missing", "not executable"};
constexpr std::array<const char*, 3> slowFaults = {"hang", "flood", "stubborn"};
constexpr unsigned onceInSlow = 60;

// With it a large network is far more than a pipe holds by default, and within what the system
// grants an ordinary user.
constexpr qsizetype largeRecord = 700;
constexpr unsigned onceInLarge = 50;

QByteArray device(int number, qsizetype fill) {
    return R"("nodekey:%":{"HostName":"device-%","DNSName":"device-%.net.","Online":true,"OS":"linux",
"TailscaleIPs":["100.64.0.%"],"Capabilities":"$"})"_ba.replace('%', QByteArray::number(number))
        .replace('$', QByteArray(fill, 'x'));
}

QByteArray statusOf(int devices) {
    QByteArrayList peers;
    for (int i = 0; i < devices; ++i)
        peers.append(device(i, devices == FaultyTool::largeNetwork ? largeRecord : 0));
    return R"({"BackendState":"Running","Self":{"HostName":"laptop","Online":true,
"TailscaleIPs":["100.64.0.1"]},"Peer":{)" +
           peers.join(',') + "}}";
}

QByteArray listOf(int profiles) {
    QByteArray list = "ID Network Account\n";
    for (int i = 0; i < profiles; ++i)
        list += "p" + QByteArray::number(i) + " net-" + QByteArray::number(i) + " me@net.example" +
                (i == 0 ? "*\n" : "\n");
    return list;
}

QString fileName(const char* prefix) {
    return QLatin1StringView(prefix) + hostPlatform().variantSuffix(machineHardwareName());
}

} // namespace

FaultyTool::FaultyTool(unsigned seed) : random_(seed) {
    // The client looks for the daemon and uses the tool beside it.
    write(qPrintable(fileName("tarnwick-daemon-")), "");
    answerWell(5);
}

QString FaultyTool::path() const {
    return directory_.filePath(fileName("tarnwick-"));
}

void FaultyTool::write(const char* name, const QByteArray& content) const {
    QFile file(directory_.filePath(QString::fromLatin1(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write the tool's files");
}

void FaultyTool::repair() {
    namespace fs = std::filesystem;
    const fs::path tool = path().toStdString();
    fs::copy_file(TARNWICK_SOAK_TOOL, tool, fs::copy_options::skip_existing);
    fs::permissions(tool, fs::perms::owner_all);
}

void FaultyTool::answerWell(int devices) {
    repair();
    condition_ = "good";
    devices_ = devices;
    write("fault", "");
    write("message", "error: cannot reach the daemon");
    write("status", statusOf(devices));
    write("list", listOf(profiles()));
}

void FaultyTool::failWith(const QByteArray& message) {
    condition_ = "refuses";
    write("fault", "error");
    write("message", message);
}

bool FaultyTool::answers() const {
    return condition_ == "good" || condition_ == "slow" || condition_ == "grandchild";
}

void FaultyTool::disturb() {
    answerWell(chance(onceInLarge) ? largeNetwork : static_cast<int>(random_() % 60));
    if (random_() % 100 < percentOfGoodAnswers)
        return;
    const bool slow = random_() % onceInSlow == 0;
    condition_ = slow ? slowFaults[random_() % slowFaults.size()]
                      : quickFaults[random_() % quickFaults.size()];
    if (condition_ == "missing")
        QFile::remove(path());
    else if (condition_ == "not executable")
        std::filesystem::permissions(path().toStdString(), std::filesystem::perms::owner_read);
    else
        write("fault", condition_);
}

} // namespace tarnwick::soak
