// Removable storage I/O: the translation tables and the result folding of CMT_StorageIO, the
// simulated disk I/O library over host folders (confinement, handles, modes, 32-bit limits,
// attributes, media), the record readers and the name conversion.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "CMT_StorageIO.h"
#include "cmt_storage_names.h"
#include "tovr_field_text.h"
#include "dvu_dio.h"
#include "esv_zel_common_facade.h"
#include "tovr_sim.h"
#include "tovr_sim_events.h"
#include "tovr_sim_storage.h"
#include "sim_fixture.h"
#include "observer_stubs.h"

using tarnwick::CMT_StorageIO;
using tarnwick::CMT_STORAGE_TYPE;
using tarnwick::CMT_FOPEN_MODE;
using tarnwick::CMT_SEEK_MODE;

namespace {

std::string make_temp() {
    char templ[] = "/tmp/tovr-storage-XXXXXX";
    char* d = mkdtemp(templ);
    return d ? std::string(d) : std::string();
}

void remove_tree(const std::string& path) {
    std::string cmd = "rm -rf '" + path + "'";
    if (std::system(cmd.c_str()) != 0) std::perror("rm");
}

std::vector<unsigned char> pattern(std::size_t n) {
    std::vector<unsigned char> v(n);
    std::uint32_t x = 2463534242u ^ static_cast<std::uint32_t>(n);
    for (auto& b : v) {
        x ^= x << 13;
        x ^= x >> 17;
        x ^= x << 5;
        b = static_cast<unsigned char>(x);
    }
    return v;
}

class Storage : public sim_test::SimDeviceTest {
protected:
    void SetUp() override {
        SimDeviceTest::SetUp();
        root = make_temp();
        ASSERT_FALSE(root.empty());
        hdd = root + "/hdd";
        usb0 = root + "/usb0";
        ASSERT_TRUE(tovr_sim::storage_set_folder(2, hdd));
        ASSERT_TRUE(tovr_sim::storage_set_folder(0, usb0));
        ASSERT_TRUE(tovr_sim::storage_set_folder(1, root + "/usb1"));
        tovr_sim::clear_calls();
    }
    void TearDown() override {
        EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kFileHandle));
        EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kDirectoryHandle));
        EXPECT_EQ(0, tovr_sim::open_resources("platform block"));
        SimDeviceTest::TearDown();
        remove_tree(root);
    }
    void write_host(const std::string& rel, const std::string& content) {
        std::ofstream(hdd + "/" + rel, std::ios::binary) << content;
    }
    std::string root, hdd, usb0;
};

}  // namespace

TEST(StorageTables, DriveNumbers) {
    EXPECT_EQ(2, CMT_StorageIO::getDriveNumber(static_cast<CMT_STORAGE_TYPE>(0)));
    EXPECT_EQ(1, CMT_StorageIO::getDriveNumber(static_cast<CMT_STORAGE_TYPE>(1)));
    EXPECT_EQ(0, CMT_StorageIO::getDriveNumber(static_cast<CMT_STORAGE_TYPE>(2)));
    for (int t : {3, 7, 100, -1, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(1, CMT_StorageIO::getDriveNumber(static_cast<CMT_STORAGE_TYPE>(t))) << t;
    }
}

TEST(StorageTables, OpenModes) {
    const int to_dvu[] = {0, 1, 3, 2, 4, 5};
    for (int m = 0; m < 6; ++m) {
        EXPECT_EQ(to_dvu[m], CMT_StorageIO::getDVUOpenMode(static_cast<CMT_FOPEN_MODE>(m)));
        EXPECT_EQ(to_dvu[m], CMT_StorageIO::getCMTOpenMode(m));
        EXPECT_EQ(m, CMT_StorageIO::getCMTOpenMode(CMT_StorageIO::getDVUOpenMode(static_cast<CMT_FOPEN_MODE>(m))));
    }
    for (int m : {6, 7, -1, 1000}) {
        EXPECT_EQ(-1, CMT_StorageIO::getDVUOpenMode(static_cast<CMT_FOPEN_MODE>(m))) << m;
        EXPECT_EQ(6, CMT_StorageIO::getCMTOpenMode(m)) << m;
    }
}

TEST(StorageTables, SeekModes) {
    EXPECT_EQ(1, CMT_StorageIO::getDVUSeekMode(tarnwick::CMTDIO_SEEK_CUR));
    EXPECT_EQ(0, CMT_StorageIO::getDVUSeekMode(static_cast<CMT_SEEK_MODE>(1)));
    EXPECT_EQ(2, CMT_StorageIO::getDVUSeekMode(static_cast<CMT_SEEK_MODE>(2)));
    for (int m : {3, 9, -1}) EXPECT_EQ(0, CMT_StorageIO::getDVUSeekMode(static_cast<CMT_SEEK_MODE>(m))) << m;
}

TEST(StorageTables, ReturnValues) {
    for (int c = -5; c <= 60; ++c) {
        int expected;
        if (c < -1 || c > 49 || c == -1 || c == 24 || (c >= 37 && c <= 46)) expected = -1;
        else if (c <= 23) expected = c;
        else if (c <= 36) expected = c - 1;
        else expected = c - 11;
        EXPECT_EQ(expected, CMT_StorageIO::getReturnValue(c)) << c;
    }
    EXPECT_EQ(-1, CMT_StorageIO::getReturnValue(24));
    EXPECT_EQ(-1, CMT_StorageIO::getReturnValue(40));
    EXPECT_EQ(36, CMT_StorageIO::getReturnValue(47));
    EXPECT_EQ(-1, CMT_StorageIO::getReturnValue(50));
    EXPECT_EQ(38, CMT_StorageIO::getReturnValue(49));
}

TEST(StorageRecords, Layouts) {
    EXPECT_EQ(64u, sizeof(DVU_DIO_STAT));
    EXPECT_EQ(12u, offsetof(DVU_DIO_STAT, dio_mode));
    EXPECT_EQ(40u, offsetof(DVU_DIO_STAT, dio_size));
    EXPECT_EQ(56u, offsetof(DVU_DIO_STAT, dio_mtime));
    EXPECT_EQ(260u, sizeof(DVU_DIO_DIRENT));
    EXPECT_EQ(4u, offsetof(DVU_DIO_DIRENT, d_name));
    EXPECT_EQ(1u, sizeof(CMT_StorageIO));
}

TEST(StorageRecords, Readers) {
    DVU_DIO_STAT st{};
    st.dio_mode = 0x41ED;
    EXPECT_TRUE(tarnwick::cmt_storage_is_directory(st));
    EXPECT_FALSE(tarnwick::cmt_storage_is_file(st));
    st.dio_mode = 0x81A4;
    EXPECT_TRUE(tarnwick::cmt_storage_is_file(st));
    st.dio_mode = 0xC000;  // 0x4000 set among other type bits: no directory
    EXPECT_FALSE(tarnwick::cmt_storage_is_directory(st));
    DVU_DIO_DIRENT e;
    std::memset(&e, 'z', sizeof e);
    EXPECT_EQ(std::string(256, 'z'), tarnwick::cmt_storage_entry_name(e));
    e.d_name[3] = 0;
    EXPECT_EQ("zzz", tarnwick::cmt_storage_entry_name(e));
}

TEST(StorageNames, Conversion) {
    using tarnwick::to_modified_utf8;
    auto conv = [](const std::string& s) { return to_modified_utf8(s.data(), s.size()); };
    EXPECT_EQ("plain", conv("plain"));
    EXPECT_EQ("Gr\xC3\xBC\xC3\x9F" "e", conv("Gr\xC3\xBC\xC3\x9F" "e"));
    EXPECT_EQ("\xE2\x82\xAC", conv("\xE2\x82\xAC"));
    EXPECT_EQ("\xED\xA0\xBD\xED\xB8\x80", conv("\xF0\x9F\x98\x80"));  // surrogate pair
    EXPECT_EQ("a\xED\xB3\xBF" "b", conv("a\xFF" "b"));                   // U+DCFF
    EXPECT_EQ("\xED\xB3\x80\xED\xB2\x80", conv("\xC0\x80"));             // overlong NUL: both bytes escaped
    EXPECT_EQ("\xED\xB3\xAD\xED\xB2\xA0\xED\xB2\x80", conv("\xED\xA0\x80"));  // an encoded surrogate
    EXPECT_EQ("x\xED\xB3\xA2", conv("x\xE2"));                          // truncated at the end
    EXPECT_EQ("ab", to_modified_utf8("ab\0cd", 5));
    EXPECT_EQ("", to_modified_utf8(nullptr, 3));
}

TEST(StorageNames, RoundTripOfAnyBytes) {
    std::mt19937 rng(7);
    for (int i = 0; i < 2000; ++i) {
        std::string s(rng() % 40, '\0');
        for (char& c : s) c = static_cast<char>(1 + rng() % 255);
        std::string j = tarnwick::to_modified_utf8(s.data(), s.size());
        ASSERT_TRUE(tarnwick::is_modified_utf8(j.data(), j.size()));
        ASSERT_EQ(s, tarnwick::cmt_storage_name_from_java(j));
    }
    // Java's own text with a NUL (C0 80) and a pair passes through unchanged one way and is
    // turned into standard UTF-8 for the medium the other way.
    EXPECT_STREQ("\xC0\x80", tarnwick::FieldText("\xC0\x80", 2).c_str());
    EXPECT_EQ("\xF0\x9F\x98\x80", tarnwick::cmt_storage_name_from_java("\xED\xA0\xBD\xED\xB8\x80"));
}

TEST_F(Storage, RoundTripsAreByteExact) {
    for (std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{4096}, std::size_t{1000000}}) {
        std::vector<unsigned char> data = pattern(size);
        const std::string name = "rt" + std::to_string(size);
        unsigned long h = 0;
        ASSERT_EQ(0, CMT_StorageIO::open(tarnwick::CMTDIO_HDD, name, static_cast<CMT_FOPEN_MODE>(1), h));
        unsigned long done = 99;
        ASSERT_EQ(0, CMT_StorageIO::write(reinterpret_cast<const signed char*>(data.data()), size, h, done));
        EXPECT_EQ(size, done);
        ASSERT_EQ(0, CMT_StorageIO::close(h));
        unsigned long length = 0;
        ASSERT_EQ(0, CMT_StorageIO::getfilesize(tarnwick::CMTDIO_HDD, name, length));
        EXPECT_EQ(size, length);
        ASSERT_EQ(0, CMT_StorageIO::open(tarnwick::CMTDIO_HDD, name, tarnwick::CMTDIO_READ, h));
        std::vector<unsigned char> back(size + 10);
        done = 0;
        int rc = CMT_StorageIO::read(reinterpret_cast<signed char*>(back.data()), size + 10, h, done);
        if (size == 0) {
            EXPECT_EQ(tarnwick::CMTDIO_EOF, rc);
        } else {
            EXPECT_EQ(0, rc);
            EXPECT_EQ(size, done);
            back.resize(size);
            EXPECT_EQ(data, back);
        }
        ASSERT_EQ(0, CMT_StorageIO::close(h));
    }
}

TEST_F(Storage, LibraryRefusesWhatLeadsOut) {
    ASSERT_EQ(0, symlink("/etc", (hdd + "/etc-link").c_str()));
    ASSERT_EQ(0, symlink((root + "/nowhere").c_str(), (hdd + "/dangling").c_str()));
    unsigned long h = 5;
    for (const char* p : {"../x", "/etc/passwd", "a/../../x", "etc-link/passwd", "etc-link", "dangling", ".."}) {
        EXPECT_EQ(DVU_DIO_ERR_OUTSIDE, dvu_dio_fopen(2, 34, p, DVU_DIO_MODE_WRITE, &h)) << p;
        EXPECT_EQ(DVU_DIO_ERR_OUTSIDE, dvu_dio_existfile(2, 34, p)) << p;
    }
    EXPECT_EQ(5u, h);
    struct stat st;
    EXPECT_NE(0, ::lstat((root + "/nowhere").c_str(), &st));
    EXPECT_EQ(-1, CMT_StorageIO::open(tarnwick::CMTDIO_HDD, "../x", static_cast<CMT_FOPEN_MODE>(1), h));
}

TEST_F(Storage, LibraryArguments) {
    unsigned long h = 0;
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_fopen(2, 33, "a", 1, &h));
    EXPECT_EQ(DVU_DIO_ERR_NO_DRIVE, dvu_dio_fopen(3, 34, "a", 1, &h));
    EXPECT_EQ(DVU_DIO_ERR_NO_DRIVE, dvu_dio_verifydiskmount(-1, 34));
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_verifydiskmount(2, 0));
    EXPECT_EQ(DVU_DIO_ERR_NOT_MOUNTED, dvu_dio_fopen(0, 34, "a", 1, &h));
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_fopen(2, 34, "a", -1, &h));
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_fopen(2, 34, "a", 6, &h));
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_fopen(2, 34, nullptr, 1, &h));
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_fopen(2, 34, "a", 1, nullptr));
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_stat(2, 34, "", nullptr));
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_readdir(1, nullptr));
    EXPECT_EQ(DVU_DIO_ERR_NAME_TOO_LONG, dvu_dio_mkdir(2, 34, std::string(2000, 'a').c_str()));
    EXPECT_EQ(DVU_DIO_ERR_NAME_TOO_LONG, dvu_dio_mkdir(2, 34, std::string(256, 'a').c_str()));
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_mkdir(2, 34, std::string(255, 'a').c_str()));
    // Every call passes the fixed 34 after each drive.
    tovr_sim::clear_calls();
    CMT_StorageIO::move(tarnwick::CMTDIO_HDD, "x", static_cast<CMT_STORAGE_TYPE>(2), "y");
    ASSERT_EQ(1u, tovr_sim::calls("dvu_dio_move").size());
    EXPECT_EQ((std::vector<std::string>{"2", "34", "x", "0", "34", "y"}), tovr_sim::calls("dvu_dio_move")[0].args);
    CMT_StorageIO::remove_disk(static_cast<CMT_STORAGE_TYPE>(2));
    EXPECT_EQ((std::vector<std::string>{"0"}), tovr_sim::calls("dvu_dio_remove_disk")[0].args);
}

TEST_F(Storage, OutputsOnlyOnSuccess) {
    unsigned long dir = 77;
    EXPECT_EQ(5, CMT_StorageIO::opendir(tarnwick::CMTDIO_HDD, "none", dir));
    EXPECT_EQ(77u, dir);
    bool yes = true;
    EXPECT_EQ(5, CMT_StorageIO::is_directory(tarnwick::CMTDIO_HDD, "none", yes));
    EXPECT_TRUE(yes);
    write_host("f", "abc");
    EXPECT_EQ(0, CMT_StorageIO::is_directory(tarnwick::CMTDIO_HDD, "f", yes));
    EXPECT_FALSE(yes);
    int attributes = 5;
    tovr_sim::force_attribute(3, 0xFF);
    EXPECT_EQ(3, CMT_StorageIO::getfileattribute(tarnwick::CMTDIO_HDD, "f", attributes));
    EXPECT_EQ(5, attributes);
    tovr_sim::force_attribute(0, 0xFF);
    EXPECT_EQ(0, CMT_StorageIO::getfileattribute(tarnwick::CMTDIO_HDD, "f", attributes));
    EXPECT_EQ(15, attributes);
    long position = -7;
    EXPECT_EQ(12, CMT_StorageIO::ftell(123, position));
    EXPECT_EQ(-7, position);
    tovr_sim::force_ftell(0, 0x7FFFFFFF);
    EXPECT_EQ(0, CMT_StorageIO::ftell(123, position));
    EXPECT_EQ(0x7FFFFFFF, position);
    int result = 55;
    EXPECT_EQ("", CMT_StorageIO::readdir(999, result));
    EXPECT_EQ(12, result) << "readdir's code is always written";
}

TEST_F(Storage, ReaddirEndAndEntries) {
    write_host("b", "1");
    write_host("a", "2");
    unsigned long dir = 0;
    ASSERT_EQ(0, CMT_StorageIO::opendir(tarnwick::CMTDIO_HDD, "", dir));
    int result = -5;
    EXPECT_EQ("a", CMT_StorageIO::readdir(dir, result));
    EXPECT_EQ(0, result);
    EXPECT_EQ("b", CMT_StorageIO::readdir(dir, result));
    EXPECT_EQ("", CMT_StorageIO::readdir(dir, result));
    EXPECT_EQ(tarnwick::CMTDIO_EOF, result);
    EXPECT_EQ(0, CMT_StorageIO::closedir(dir));
}

TEST_F(Storage, AttributeBitsAndReadOnly) {
    write_host("r", "x");
    tovr_sim::clear_calls();
    EXPECT_EQ(0, CMT_StorageIO::setfileattribute(tarnwick::CMTDIO_HDD, "r", 0x1F));
    EXPECT_EQ("15", tovr_sim::calls("dvu_dio_setfileattribute")[0].args[3]);
    EXPECT_EQ(2 | 4 | 8, tovr_sim::storage_attributes(2, "r"));
    unsigned long h = 0;
    EXPECT_EQ(DVU_DIO_ERR_READ_ONLY, dvu_dio_fopen(2, 34, "r", DVU_DIO_MODE_APPEND, &h));
    EXPECT_EQ(DVU_DIO_ERR_READ_ONLY, dvu_dio_remove(2, 34, "r"));
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_rename(2, 34, "r", "s"));
    EXPECT_EQ(2 | 4 | 8, tovr_sim::storage_attributes(2, "s")) << "attributes follow a rename";
    EXPECT_EQ(0, CMT_StorageIO::setfileattribute(tarnwick::CMTDIO_HDD, "s", 1));  // the directory bit is the kind
    EXPECT_EQ(0, tovr_sim::storage_attributes(2, "s"));
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_remove(2, 34, "s"));
}

TEST_F(Storage, ThirtyTwoBitLimits) {
    unsigned long h = 0;
    ASSERT_EQ(DVU_DIO_OK, dvu_dio_fopen(2, 34, "big", DVU_DIO_MODE_WRITE_READ, &h));
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_fseek(h, 0x7FFFFFFF, DVU_DIO_SEEK_SET));
    EXPECT_EQ(DVU_DIO_ERR_TOO_LARGE, dvu_dio_fseek(h, 1, DVU_DIO_SEEK_CUR));
    EXPECT_EQ(DVU_DIO_ERR_SEEK, dvu_dio_fseek(h, -1, DVU_DIO_SEEK_SET));
    EXPECT_EQ(DVU_DIO_ERR_PARAM, dvu_dio_fseek(h, 0, 3));
    long p = 0;
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_ftell(h, &p));
    EXPECT_EQ(0x7FFFFFFF, p);
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_fclose(h));
    EXPECT_EQ(DVU_DIO_ERR_BAD_HANDLE, dvu_dio_fclose(h));
}

namespace {
class UsbObserver : public sim_test::CommonObserverStub {
public:
    std::vector<unsigned int> statuses;
    unsigned long notify_usb_memory_status(unsigned int status) override {
        statuses.push_back(status);
        return 0;
    }
};
}  // namespace

TEST_F(Storage, MediaRaiseUsbNotifications) {
    UsbObserver o;
    auto* common = tarnwick::esv_zel_common_facade::esv_zel_common_get_instance();
    ASSERT_EQ(0u, common->esv_zel_common_add_observer(&o));
    EXPECT_FALSE(tovr_sim::storage_plug(2));
    tovr_sim::Answers answers;
    EXPECT_TRUE(tovr_sim::storage_plug(0, &answers));
    EXPECT_EQ(1u, answers.size());
    EXPECT_FALSE(tovr_sim::storage_plug(0));
    EXPECT_TRUE(tovr_sim::storage_plug(1));
    unsigned long h = 0;
    ASSERT_EQ(DVU_DIO_OK, dvu_dio_fopen(1, 34, "f", DVU_DIO_MODE_WRITE, &h));
    EXPECT_EQ(DVU_DIO_ERR_BUSY, dvu_dio_remove_disk(1));
    EXPECT_TRUE(tovr_sim::storage_unplug(1));
    unsigned long done = 0;
    EXPECT_EQ(DVU_DIO_ERR_MEDIA_REMOVED, dvu_dio_fwrite("x", 1, h, &done));
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_fclose(h));
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_remove_disk(0));
    EXPECT_EQ(DVU_DIO_ERR_NOT_SUPPORTED, dvu_dio_remove_disk(2));
    EXPECT_EQ((std::vector<unsigned int>{0x001, 0x101, 0x100, 0x000}), o.statuses);
    ASSERT_EQ(0u, common->esv_zel_common_remove_observer(&o));
}

TEST_F(Storage, HandleLimitsAndCounts) {
    tovr_sim::storage_set_limits(1, 1);
    unsigned long a = 0, b = 0, d = 0, e = 0;
    ASSERT_EQ(DVU_DIO_OK, dvu_dio_fopen(2, 34, "a", DVU_DIO_MODE_WRITE, &a));
    EXPECT_EQ(DVU_DIO_ERR_TOO_MANY_FILES, dvu_dio_fopen(2, 34, "b", DVU_DIO_MODE_WRITE, &b));
    ASSERT_EQ(DVU_DIO_OK, dvu_dio_opendir(2, 34, "", &d));
    EXPECT_EQ(DVU_DIO_ERR_TOO_MANY_DIRS, dvu_dio_opendir(2, 34, "", &e));
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kFileHandle));
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kDirectoryHandle));
    EXPECT_LT(a, 0x100000000ull);
    EXPECT_EQ(DVU_DIO_ERR_BAD_HANDLE, dvu_dio_closedir(a));
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_fclose(a));
    EXPECT_EQ(DVU_DIO_OK, dvu_dio_closedir(d));
}
