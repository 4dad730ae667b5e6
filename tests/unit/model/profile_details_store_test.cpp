// SPDX-License-Identifier: MIT
#include "model/profile_details_store.h"
#include "support/printing.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

const auto key = u"tarnwick.profileDetails"_s;
const ProfileDetailsMap some = {{u"p1"_s, {u"100.64.0.2"_s, u"laptop"_s}}};
const ProfileDetailsMap others = {{u"p2"_s, {u""_s, u"m\u00FCller \U0001F600 \"q\" \n"_s}},
                                  {u"%/\\"_s, {u"fd7a::1"_s, u""_s}}};

class ProfileDetailsStoreTest : public testing::Test {
protected:
    QString file() const { return home_.filePath(u"client.conf"_s); }

    std::unique_ptr<QSettings> settings() const {
        return std::make_unique<QSettings>(file(), QSettings::IniFormat);
    }

    ProfileDetailsStore store() const {
        return ProfileDetailsStore(settings(), u"tarnwick.profileDetails"_s);
    }

    void writeFile(const QByteArray& content) const {
        QFile target(file());
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(content);
    }

    QByteArray content() const {
        QFile source(file());
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
    }

    QTemporaryDir home_;
};

TEST_F(ProfileDetailsStoreTest, NothingStoredIsNothingRemembered) {
    EXPECT_TRUE(store().load().isEmpty());
    EXPECT_FALSE(QFile::exists(file())) << "reading writes nothing";
}

TEST_F(ProfileDetailsStoreTest, SavedDetailsOutliveTheStore) {
    store().save(some);
    EXPECT_EQ(store().load(), some);
    store().save(others);
    EXPECT_EQ(store().load(), others) << "the previous value is replaced";
    store().save({});
    EXPECT_TRUE(store().load().isEmpty());
}

TEST_F(ProfileDetailsStoreTest, StoredValueIsBinaryJsonWithExactlyTwoKeysAProfile) {
    store().save(some);
    const QVariant value = settings()->value(key);
    EXPECT_EQ(value.typeId(), QMetaType::QByteArray);
    const QJsonObject expected = {
        {u"p1"_s, QJsonObject{{u"ipAddress"_s, u"100.64.0.2"_s}, {u"hostname"_s, u"laptop"_s}}}};
    EXPECT_EQ(QJsonDocument::fromJson(value.toByteArray()).object(), expected);
}

TEST_F(ProfileDetailsStoreTest, EncodedDetailsDecodeToTheSame) {
    const quint32 seed = QRandomGenerator::global()->generate();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    QRandomGenerator random(seed);
    const auto text = [&random] {
        QString result;
        for (quint32 i = random.bounded(8U); i > 0; --i)
            result += QString::fromUcs4(&U"a\"\\\n\u00E9\u4E2D\U0001F600/"[random.bounded(8)], 1);
        return result;
    };
    for (int round = 0; round < 500; ++round) {
        ProfileDetailsMap details;
        for (quint32 i = random.bounded(5U); i > 0; --i)
            details.insert(text(), {text(), text()});
        ASSERT_EQ(ProfileDetailsStore::decode(ProfileDetailsStore::encode(details)), details);
    }
}

TEST_F(ProfileDetailsStoreTest, AnotherShapeIsNothingRemembered) {
    for (const char* json :
         {"", "x", "[]", "5", "{\"p\":5}", "{\"p\":{}}", "{\"p\":{\"ipAddress\":\"a\"}}",
          "{\"p\":{\"hostname\":\"a\"}}", "{\"p\":{\"ipAddress\":1,\"hostname\":\"a\"}}",
          "{\"p\":{\"ipAddress\":null,\"hostname\":\"a\"}}", "{\"p\":null}",
          "{\"o\":{\"ipAddress\":\"a\",\"hostname\":\"b\"},\"p\":[]}"}) {
        settings()->setValue(key, QByteArray(json));
        EXPECT_TRUE(store().load().isEmpty()) << json;
        EXPECT_EQ(settings()->value(key).toByteArray(), json) << "left until the next save";
        store().save(some);
        EXPECT_EQ(store().load(), some) << json;
    }
}

TEST_F(ProfileDetailsStoreTest, ValueOfAnotherTypeUnderTheKeyIsNoneAndTheNextSaveRepairs) {
    const QByteArray json = ProfileDetailsStore::encode(some);
    for (const QVariant& value :
         {QVariant(QString::fromUtf8(json)), QVariant(5), QVariant(QStringList{u"a"_s, u"b"_s}),
          QVariant(QVariantMap{{u"p1"_s, 1}})}) {
        settings()->setValue(key, value);
        auto repaired = store();
        EXPECT_TRUE(repaired.load().isEmpty());
        repaired.save(others);
        EXPECT_EQ(repaired.load(), others);
        EXPECT_EQ(store().load(), others);
    }
}

TEST_F(ProfileDetailsStoreTest, CorruptFileIsNoneAndTheNextSaveRepairs) {
    for (const QByteArray& content :
         {QByteArray("\0\xFF\xFE garbage \x01", 13), QByteArray("[[[[\n===\n\xC3\x28"),
          QByteArray(100000, '\xFF'), QByteArray("tarnwick.profileDetails=@ByteArray({\"p1\":"),
          QByteArray("[General]\ntarnwick.profileDetails=@Variant(\\0\\0\\0\\x7f)")}) {
        writeFile(content);
        auto repaired = store();
        EXPECT_TRUE(repaired.load().isEmpty());
        repaired.save(some);
        EXPECT_EQ(repaired.load(), some);
        EXPECT_EQ(store().load(), some) << content.left(40).constData();
    }
}

TEST_F(ProfileDetailsStoreTest, FileDamagedWhileTheClientRunsIsRepairedByTheNextSave) {
    auto running = store();
    running.save(some);
    writeFile("damaged \xFF\xFF");
    running.save(some);
    EXPECT_EQ(store().load(), some);
    QFile::remove(file());
    running.save(some);
    EXPECT_EQ(store().load(), some);
}

TEST_F(ProfileDetailsStoreTest, DirectoryInPlaceOfTheFileIsNoneAndASaveAfterItsRemovalRepairs) {
    ASSERT_TRUE(QDir().mkpath(file()));
    auto running = store();
    EXPECT_TRUE(running.load().isEmpty());
    running.save(some);
    running.save(others);
    ASSERT_TRUE(QDir().rmdir(file()));
    running.save(others);
    EXPECT_EQ(store().load(), others);
}

TEST_F(ProfileDetailsStoreTest, UnwritableDirectoryKeepsTheOldValueAndALaterSaveRepairs) {
    store().save(some);
    const auto readOnly = QFile::ReadOwner | QFile::ExeOwner;
    ASSERT_TRUE(QFile::setPermissions(home_.path(), readOnly));
    auto running = store();
    EXPECT_EQ(running.load(), some);
    running.save(others);
    // The file itself is looked at, for stores of one process share what is not written yet.
    // Permissions do not bind the superuser.
    EXPECT_EQ(content().contains("100.64.0.2"), geteuid() != 0);
    ASSERT_TRUE(QFile::setPermissions(home_.path(), readOnly | QFile::WriteOwner));
    running.save(others);
    EXPECT_EQ(store().load(), others);
}

TEST_F(ProfileDetailsStoreTest, MissingDirectoryUnderAFileNeverCrashes) {
    writeFile("a file where a directory should be");
    ProfileDetailsStore running(
        std::make_unique<QSettings>(file() + u"/client.conf"_s, QSettings::IniFormat),
        u"tarnwick.profileDetails"_s);
    running.save(some);
    running.save(others);
    EXPECT_TRUE(QFile::exists(file()));
}

// The lock is held by this very process, which is alive: a save that waited for it would never
// return, and the test would run into its time limit.
TEST_F(ProfileDetailsStoreTest, LockHeldByALiveProcessIsNotWaitedFor) {
    auto running = store();
    running.save(some);
    {
        QLockFile lock(file() + u".lock"_s);
        lock.setStaleLockTime(0);
        ASSERT_TRUE(lock.lock());
        running.save(others);
        EXPECT_EQ(store().load(), some) << "not saved, and not waited for";
    }
    running.save(others);
    EXPECT_EQ(store().load(), others);
}

TEST_F(ProfileDetailsStoreTest, LockHeldBeforeTheFirstSaveIsNotWaitedForEither) {
    QLockFile lock(file() + u".lock"_s);
    lock.setStaleLockTime(0);
    ASSERT_TRUE(lock.lock());
    auto running = store();
    running.save(some);
    EXPECT_FALSE(QFile::exists(file()));
    lock.unlock();
    running.save(some);
    EXPECT_EQ(store().load(), some);
}

TEST_F(ProfileDetailsStoreTest, LockHeldWhileSomethingCouldNotBeWrittenIsNotWaitedForEither) {
    ASSERT_TRUE(QDir().mkpath(file()));
    auto running = store();
    running.save(some);
    ASSERT_TRUE(QDir().rmdir(file()));
    QLockFile lock(file() + u".lock"_s);
    lock.setStaleLockTime(0);
    ASSERT_TRUE(lock.lock());
    running.save(some);
    running.save(others);
    EXPECT_FALSE(QFile::exists(file()));
    lock.unlock();
    running.save(others);
    EXPECT_EQ(store().load(), others);
}

TEST_F(ProfileDetailsStoreTest, SavingTheSameAgainLeavesTheFileAlone) {
    auto running = store();
    running.save(some);
    QFile written(file());
    ASSERT_TRUE(written.open(QIODevice::ReadWrite));
    const auto longAgo = QDateTime::fromSecsSinceEpoch(1'000'000'000);
    ASSERT_TRUE(written.setFileTime(longAgo, QFileDevice::FileModificationTime));
    written.close();
    running.save(some);
    EXPECT_EQ(QFileInfo(file()).lastModified(), longAgo);
}

} // namespace

} // namespace tarnwick
