// The simulated address book as the library sees it through the common facade: match rule,
// cursors, per-fetch capacity, handles, the limit of open searches, forcings, bulk generation
// and loading from a file.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "esv_zel_common_facade.h"
#include "tovr_sim_address.h"
#include "sim_fixture.h"

namespace {

tarnwick::esv_zel_common_facade* facade() { return tarnwick::esv_zel_common_facade::esv_zel_common_get_instance(); }

class AddressSim : public sim_test::SimDeviceTest {
protected:
    // Names found by one search of `per_fetch` records per fetch, and the fetch counts.
    std::vector<std::string> all(const char* key, unsigned int per_fetch, std::vector<unsigned int>* counts = nullptr) {
        unsigned int handle = 0, second = 0;
        EXPECT_EQ(0u, facade()->esv_zel_search_personal_address_list_prepare(per_fetch, handle, second));
        std::vector<ESV_ZEL_PERSONAL_ADDRESS> buffer(per_fetch + 1);
        std::vector<std::string> names;
        for (;;) {
            buffer[per_fetch] = tovr_sim::make_address("guard");
            unsigned int ret = 12345;
            EXPECT_EQ(0u, facade()->esv_zel_search_personal_address_list(handle, key, ret, buffer.data()));
            EXPECT_STREQ("guard", buffer[per_fetch].name_info.name);  // never past the capacity
            if (counts) counts->push_back(ret);
            for (unsigned int i = 0; i < ret; ++i) names.push_back(buffer[i].name_info.name);
            if (ret == 0) break;
        }
        EXPECT_EQ(0u, facade()->esv_zel_search_personal_address_list_finish(handle));
        return names;
    }
};

}  // namespace

TEST_F(AddressSim, CaselessPrefixOfTheNameInBookOrder) {
    for (const char* n : {"Anna", "bob", "ANNE", "Hanna", "an"}) tovr_sim::add_address(tovr_sim::make_address(n));
    EXPECT_EQ((std::vector<std::string>{"Anna", "ANNE"}), all("ann", 20));
    EXPECT_EQ((std::vector<std::string>{"Anna", "bob", "ANNE", "Hanna", "an"}), all("", 2));
    EXPECT_EQ((std::vector<std::string>{}), all("annabel", 20));
}

TEST_F(AddressSim, EachFetchHoldsAtMostThePerFetchCount) {
    tovr_sim::generate_address_book(45);
    std::vector<unsigned int> counts;
    EXPECT_EQ(45u, all("Person", 20, &counts).size());
    EXPECT_EQ((std::vector<unsigned int>{20, 20, 5, 0}), counts);
    counts.clear();
    EXPECT_EQ(45u, all("Person", 1, &counts).size());
    EXPECT_EQ(46u, counts.size());
}

TEST_F(AddressSim, OneLinearPassWhateverTheNumberOfFetches) {
    tovr_sim::generate_address_book(100);
    for (int i = 0; i < 100; ++i) tovr_sim::add_address(tovr_sim::make_address("x"));
    std::vector<unsigned int> counts;
    std::vector<std::string> names = all("Person 0005", 3, &counts);
    EXPECT_EQ(10u, names.size());
    EXPECT_EQ("Person 00050", names.front());
    EXPECT_EQ("Person 00059", names.back());
}

TEST_F(AddressSim, HandlesAreCountedAndLimited) {
    tovr_sim::generate_address_book(3);
    std::vector<unsigned int> handles;
    for (int i = 0; i < tovr_sim::kDefaultAddressSearchLimit; ++i) {
        unsigned int h = 0, second = 0;
        ASSERT_EQ(0u, facade()->esv_zel_search_personal_address_list_prepare(1, h, second));
        EXPECT_EQ(3u, second);
        EXPECT_NE(0u, h);
        handles.push_back(h);
    }
    EXPECT_EQ(tovr_sim::kDefaultAddressSearchLimit, tovr_sim::open_resources(tovr_sim::kAddressSearch));
    unsigned int h = 77, second = 77;
    EXPECT_EQ(tovr_sim::kAddressTooManySearches, facade()->esv_zel_search_personal_address_list_prepare(1, h, second));
    EXPECT_EQ(77u, h);
    for (unsigned int x : handles) EXPECT_EQ(0u, facade()->esv_zel_search_personal_address_list_finish(x));
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kAddressSearch));
    EXPECT_EQ(tovr_sim::kAddressHandleError, facade()->esv_zel_search_personal_address_list_finish(handles[0]));
    unsigned int ret = 9;
    ESV_ZEL_PERSONAL_ADDRESS rec{};
    EXPECT_EQ(tovr_sim::kAddressHandleError, facade()->esv_zel_search_personal_address_list(handles[0], "", ret, &rec));
    EXPECT_EQ(0u, ret);
    EXPECT_EQ(tovr_sim::kAddressParamError, facade()->esv_zel_search_personal_address_list_prepare(0, h, second));
    ASSERT_EQ(0u, facade()->esv_zel_search_personal_address_list_prepare(1, h, second));
    EXPECT_EQ(tovr_sim::kAddressParamError, facade()->esv_zel_search_personal_address_list(h, nullptr, ret, &rec));
    EXPECT_EQ(tovr_sim::kAddressParamError, facade()->esv_zel_search_personal_address_list(h, "", ret, nullptr));
    tovr_sim::reset_address_book();  // closes what is open
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kAddressSearch));
}

TEST_F(AddressSim, EveryCallIsRecordedAndForceable) {
    tovr_sim::generate_address_book(2);
    tovr_sim::force_address_prepare(0x0401AAAA, 55, 66);
    unsigned int h = 0, second = 0;
    EXPECT_EQ(0x0401AAAAu, facade()->esv_zel_search_personal_address_list_prepare(20, h, second));
    EXPECT_EQ(55u, h);
    EXPECT_EQ(66u, second);
    EXPECT_EQ(0, tovr_sim::open_resources(tovr_sim::kAddressSearch));

    ASSERT_EQ(0u, facade()->esv_zel_search_personal_address_list_prepare(2, h, second));
    ESV_ZEL_PERSONAL_ADDRESS forced = tovr_sim::make_address("Forced", "f@mfp.test");
    tovr_sim::force_address_fetch(0, 1, {forced, forced, forced});
    ESV_ZEL_PERSONAL_ADDRESS buf[3] = {};
    tovr_sim::set_text(buf[2].name_info.name, "guard");
    unsigned int ret = 0;
    EXPECT_EQ(0u, facade()->esv_zel_search_personal_address_list(h, "Per", ret, buf));
    EXPECT_EQ(1u, ret);
    EXPECT_STREQ("Forced", buf[0].name_info.name);
    EXPECT_STREQ("Forced", buf[1].name_info.name);  // up to the search's per-fetch count
    EXPECT_STREQ("guard", buf[2].name_info.name);
    tovr_sim::force_address_finish(0x0401BBBB);
    EXPECT_EQ(0x0401BBBBu, facade()->esv_zel_search_personal_address_list_finish(h));
    EXPECT_EQ(1, tovr_sim::open_resources(tovr_sim::kAddressSearch));
    EXPECT_EQ(0u, facade()->esv_zel_search_personal_address_list_finish(h));

    auto calls = tovr_sim::calls();
    ASSERT_EQ(5u, calls.size());
    EXPECT_EQ("esv_zel_search_personal_address_list_prepare", calls[0].op);
    EXPECT_EQ("20", calls[0].args[0]);
    EXPECT_EQ("esv_zel_search_personal_address_list", calls[2].op);
    EXPECT_EQ(std::to_string(h), calls[2].args[0]);
    EXPECT_EQ("Per", calls[2].args[1]);
    EXPECT_EQ("esv_zel_search_personal_address_list_finish", calls[4].op);
}

TEST_F(AddressSim, TheBookMayChangeWhileASearchIsOpen) {
    tovr_sim::generate_address_book(5);
    unsigned int h = 0, second = 0, ret = 0;
    ASSERT_EQ(0u, facade()->esv_zel_search_personal_address_list_prepare(1, h, second));
    ESV_ZEL_PERSONAL_ADDRESS rec{};
    ASSERT_EQ(0u, facade()->esv_zel_search_personal_address_list(h, "", ret, &rec));
    EXPECT_STREQ("Person 00001", rec.name_info.name);
    EXPECT_TRUE(tovr_sim::remove_address(1));  // Person 00002 goes
    ASSERT_EQ(0u, facade()->esv_zel_search_personal_address_list(h, "", ret, &rec));
    EXPECT_STREQ("Person 00003", rec.name_info.name);
    tovr_sim::resize_address_book(2);
    ASSERT_EQ(0u, facade()->esv_zel_search_personal_address_list(h, "", ret, &rec));
    EXPECT_EQ(0u, ret);
    tovr_sim::resize_address_book(4);
    EXPECT_STREQ("Person 00004", tovr_sim::address_at(3).name_info.name);
    ASSERT_EQ(0u, facade()->esv_zel_search_personal_address_list(h, "", ret, &rec));
    EXPECT_EQ(1u, ret);
    EXPECT_STREQ("Person 00003", rec.name_info.name);
    EXPECT_EQ(0u, facade()->esv_zel_search_personal_address_list_finish(h));
}

TEST_F(AddressSim, GeneratedEntriesAreCompleteAndNumbered) {
    tovr_sim::generate_address_book(3, 10);
    ASSERT_EQ(3u, tovr_sim::address_book_size());
    ESV_ZEL_PERSONAL_ADDRESS a = tovr_sim::address_at(2);
    EXPECT_STREQ("Person 00012", a.name_info.name);
    const ESV_ZEL_PERSONAL_ADDRESS expected = tovr_sim::generated_address(12);
    EXPECT_EQ(0, std::memcmp(&a, &expected, sizeof a));
    for (const char* text : {a.name_info.furigana, a.ftp_info.ftp_host, a.ftp_info.ftp_path, a.ftp_info.ftp_login,
                             a.ftp_info.ftp_pw, a.smb_info.smb_host, a.smb_info.smb_path, a.smb_info.smb_login,
                             a.smb_info.smb_pw, a.fax_info.fax_no, a.fax_info.fax_code, a.fax_info.fax_code_pw,
                             a.fax_info.name, a.fax_info.company_name, a.fax_info.post_name,
                             a.ifax_info.i_fax_address, a.email_info.mail_address}) {
        EXPECT_NE('\0', text[0]);
    }
    EXPECT_NE(0, a.ftp_info.ftp_port);
    EXPECT_NE(0, a.smb_info.smb_port);
    EXPECT_NE(0, a.fax_info.communication_speed);
    EXPECT_NE(0, a.fax_info.title);
}

TEST_F(AddressSim, LoadedFromAFile) {
    const std::string path = ::testing::TempDir() + "address_sim_book.txt";
    {
        std::ofstream out(path);
        out << "# comment\n\n[address]\nname = Dora Diaz\nftp_port = 0x15\ncommunication_speed = 0x102\n"
               "fax_code = 12\nfax_code_pw = 34\nmail_address = dora@mfp.test\n[address]\nname=Dan\n";
    }
    std::string error;
    EXPECT_EQ(2, tovr_sim::load_address_book(path, &error)) << error;
    ESV_ZEL_PERSONAL_ADDRESS a = tovr_sim::address_at(0);
    EXPECT_STREQ("Dora Diaz", a.name_info.name);
    EXPECT_EQ(21, a.ftp_info.ftp_port);
    EXPECT_EQ(0x102, a.fax_info.communication_speed);
    EXPECT_STREQ("12", a.fax_info.fax_code);
    EXPECT_STREQ("34", a.fax_info.fax_code_pw);
    EXPECT_STREQ("dora@mfp.test", a.email_info.mail_address);
    EXPECT_STREQ("Dan", tovr_sim::address_at(1).name_info.name);
    {
        std::ofstream out(path);
        out << "[address]\nftp_port = 70000\n";
    }
    EXPECT_EQ(-1, tovr_sim::load_address_book(path, &error));
    EXPECT_NE(std::string::npos, error.find(":2: bad number for ftp_port")) << error;
    {
        std::ofstream out(path);
        out << "name = early\n";
    }
    EXPECT_EQ(-1, tovr_sim::load_address_book(path, &error));
    EXPECT_EQ(2u, tovr_sim::address_book_size());
    std::remove(path.c_str());
    EXPECT_EQ(-1, tovr_sim::load_address_book(path, &error));
}

TEST_F(AddressSim, TheSampleBookLoads) {
    std::string source = __FILE__;
    source = source.substr(0, source.rfind("tests/native/"));
    std::string error;
    ASSERT_EQ(3, tovr_sim::load_address_book(source + "platform/sim/address/address_book_sample.txt", &error)) << error;
    ESV_ZEL_PERSONAL_ADDRESS a = tovr_sim::address_at(0);
    EXPECT_STREQ("Anna Berg", a.name_info.name);
    EXPECT_STREQ("MFP\\anna", a.smb_info.smb_login);
    EXPECT_EQ(445, a.smb_info.smb_port);
    EXPECT_EQ(0x102, a.fax_info.communication_speed);
    EXPECT_STREQ("Chen Li", tovr_sim::address_at(2).name_info.name);
}
