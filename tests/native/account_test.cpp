// Department accounts: the slot table of limits and restrictions, bounded id and name, the
// manager's and configuration's results and traces, and the simulated department facade's
// settings and page counters.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "cmt_account.h"
#include "cmt_account_config.h"
#include "cmt_account_manager.h"
#include "sim_fixture.h"
#include "tovr_sim_user.h"

using tarnwick::cmt_account;
using tarnwick::cmt_account_config;
using tarnwick::cmt_account_manager;
using sim_test::Line;

namespace {

std::vector<Line> lines(const std::string& module, const std::string& op) { return sim_test::op_lines(module, op); }

class Accounts : public sim_test::SimDeviceTest {};

TEST_F(Accounts, ObjectIsTheRecordAfterTheVtable) {
    EXPECT_EQ(sizeof(void*) + sizeof(ESV_ZEL_DEPT_DEPTINFO), sizeof(cmt_account));
    cmt_account a("D1");
    EXPECT_EQ(reinterpret_cast<char*>(&a) + sizeof(void*), reinterpret_cast<char*>(a.get_deptinfo()));
}

TEST_F(Accounts, CreationClearsAndTraces) {
    cmt_account a("D42");
    EXPECT_EQ((std::vector<Line>{{3, "cmt_account is created. id = [D42]"}}), lines("cmt_account", "cmt_account"));
    ESV_ZEL_DEPT_DEPTINFO* d = a.get_deptinfo();
    EXPECT_EQ("D42", a.get_id());
    EXPECT_EQ("", a.get_name());
    EXPECT_EQ('\0', d->note[0]);
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(0, d->limit[i]);
        EXPECT_EQ(0, d->restriction[i]);
    }
    d->reserved = 5;
    d->limit[4] = 9;
    std::strcpy(d->name, "n");
    a.init();
    EXPECT_EQ(0, d->reserved);
    EXPECT_EQ(0, d->limit[4]);
    EXPECT_EQ("", a.get_name());
    EXPECT_EQ("D42", a.get_id());
}

TEST_F(Accounts, SlotTable) {
    struct Slot {
        int type, mix, slot;  // -1 nothing stored, -2 refused
    };
    const Slot table[] = {{1, 1, -1}, {1, 0, 3}, {2, 1, 0}, {2, 0, 6}, {3, 1, 8}, {3, 0, 8}, {4, 1, 9},
                          {4, 0, 9},  {5, 1, -1}, {5, 0, 4}, {6, 1, -1}, {6, 0, 5}, {7, 1, 1}, {7, 0, 7},
                          {8, 1, 2},  {8, 0, -1}, {0, 0, -2}, {0, 1, -2}, {9, 0, -2}, {9, 1, -2}, {-1, 0, -2},
                          {3, 2, -1}, {2, -1, -1}};
    for (const Slot& s : table) {
        for (int kind = 0; kind < 2; ++kind) {
            cmt_account a("S");
            ESV_ZEL_DEPT_DEPTINFO before = *a.get_deptinfo();
            int r = kind == 0 ? a.set_limit(50, s.type, s.mix) : a.set_restriction(50, s.type, s.mix);
            EXPECT_EQ(s.slot == -2 ? 0 : 1, r) << s.type << "/" << s.mix;
            ESV_ZEL_DEPT_DEPTINFO expected = before;
            if (s.slot >= 0) (kind == 0 ? expected.limit : expected.restriction)[s.slot] = 50;
            EXPECT_EQ(0, std::memcmp(&expected, a.get_deptinfo(), sizeof expected)) << s.type << "/" << s.mix;
        }
    }
}

TEST_F(Accounts, SetTracesAndGettersAlwaysMinusTwo) {
    cmt_account a("T");
    tovr_sim::clear_trace();
    EXPECT_EQ(1, a.set_limit(50, 1, 0));
    EXPECT_EQ(50, a.get_deptinfo()->limit[3]);
    EXPECT_EQ(1, a.set_restriction(2, 7, 1));
    EXPECT_EQ(2, a.get_deptinfo()->restriction[1]);
    EXPECT_EQ((std::vector<Line>{{3, "page = [50], type = [1], mixmode = [0]"}}), lines("cmt_account", "set_limit"));
    EXPECT_EQ((std::vector<Line>{{3, "mode = [2], type = [7], mixmode = [1]"}}), lines("cmt_account", "set_restriction"));
    EXPECT_EQ(0, a.set_limit(50, 9, 0));
    EXPECT_EQ(1, a.set_limit(7, 3, 1));
    EXPECT_EQ(1, a.set_limit(8, 3, 0));
    EXPECT_EQ(8, a.get_deptinfo()->limit[8]);
    for (int t = -1; t <= 9; ++t) {
        EXPECT_EQ(-2, a.get_limit(t));
        EXPECT_EQ(-2, a.get_restriction(t));
    }
}

TEST_F(Accounts, IdAndNameAreBoundedByTheirFields) {
    cmt_account a(std::string(40, 'i'));
    EXPECT_EQ(std::string(9, 'i'), a.get_id());
    a.set_name(std::string(500, 'n'));
    EXPECT_EQ(std::string(192, 'n'), a.get_name());
    EXPECT_EQ(std::string(9, 'i'), a.get_id()) << "the name did not run into the id";
    // Whatever a facade leaves in the fields, the getters stay inside them.
    std::memset(a.get_deptinfo()->name, 'x', sizeof a.get_deptinfo()->name);
    std::memset(a.get_deptinfo()->id, 'y', sizeof a.get_deptinfo()->id);
    EXPECT_EQ(std::string(193, 'x'), a.get_name());
    EXPECT_EQ(std::string(10, 'y'), a.get_id());
}

TEST_F(Accounts, ManagerResults) {
    cmt_account_manager m;
    cmt_account a("D1");
    a.set_name("Sales");
    a.set_limit(100, 2, 0);
    EXPECT_EQ(0, m.add(&a));
    tovr_sim::clear_trace();
    EXPECT_EQ(1, m.add(&a));
    EXPECT_EQ((std::vector<Line>{{0, "result = ESV_ZEL_DEPT_DUPL_DEPT_ERROR"}}), lines("cmt_account_manager", "add"));
    ESV_ZEL_DEPT_DEPTINFO stored;
    ASSERT_TRUE(tovr_sim::dept("D1", &stored));
    EXPECT_STREQ("Sales", stored.name);
    EXPECT_EQ(100, stored.limit[6]);

    a.set_name("Sales East");
    EXPECT_EQ(0, m.update(&a));
    cmt_account back("D1");
    EXPECT_EQ(0, m.retrieve_account(&back));
    EXPECT_EQ("Sales East", back.get_name());
    EXPECT_EQ(100, back.get_deptinfo()->limit[6]);

    cmt_account ghost("ZZ");
    tovr_sim::clear_trace();
    EXPECT_EQ(2, m.update(&ghost));
    EXPECT_EQ(2, m.retrieve_account(&ghost));
    EXPECT_EQ(2, m.remove("ZZ"));
    EXPECT_EQ((std::vector<Line>{{0, "result = ESV_ZEL_DEPT_NOT_FOUND_ERROR"}}), lines("cmt_account_manager", "remove"));
    EXPECT_EQ((std::vector<Line>{{0, "result = ESV_ZEL_DEPT_NOT_FOUND_ERROR"}}), lines("cmt_account_manager", "update"));
    EXPECT_EQ(0, m.reset_counter("ZZ"));
    EXPECT_EQ(1, m.reset_counter("D1"));
    EXPECT_EQ(0, m.remove("D1"));
    EXPECT_EQ(1, m.remove_all());
    EXPECT_TRUE(tovr_sim::dept_ids().empty());

    // Other codes.
    tovr_sim::clear_trace();
    for (const char* op : {"esv_zel_dept_add_hide_dept", "esv_zel_dept_update_hide_dept", "esv_zel_dept_retrieve_hide_dept",
                           "esv_zel_dept_delete_hide_dept"}) {
        tovr_sim::force_result(op, 0x04010801);
    }
    EXPECT_EQ(3, m.add(&a));
    EXPECT_EQ(3, m.update(&a));
    EXPECT_EQ(3, m.retrieve_account(&a));
    EXPECT_EQ(3, m.remove("D1"));
    EXPECT_EQ((std::vector<Line>{{0, "result = [67176449]"}}), lines("cmt_account_manager", "add"));
    tovr_sim::force_result("esv_zel_dept_delete_all_hide_dept", 0x04010801);
    EXPECT_EQ(0, m.remove_all());
    tovr_sim::force_result("esv_zel_dept_reset_hide_dept_counter", 0x04010801);
    EXPECT_EQ(0, m.reset_counter("D1"));
    // Duplicate and not-found are only told apart where the operation knows them.
    tovr_sim::force_result("esv_zel_dept_update_hide_dept", 0x04010804);
    EXPECT_EQ(3, m.update(&a));
    tovr_sim::force_result("esv_zel_dept_add_hide_dept", 0x04010803);
    EXPECT_EQ(3, m.add(&a));
}

TEST_F(Accounts, ManagerRefusesANullAccount) {
    cmt_account_manager m;
    EXPECT_EQ(3, m.add(nullptr));
    EXPECT_EQ(3, m.update(nullptr));
    EXPECT_EQ(3, m.retrieve_account(nullptr));
    EXPECT_EQ((std::vector<Line>{{0, "account == NULL."}}), lines("cmt_account_manager", "add"));
    EXPECT_TRUE(tovr_sim::calls().empty());
}

TEST_F(Accounts, RetrieveOfAnUnterminatedRecordStaysInTheFields) {
    cmt_account_manager m;
    ESV_ZEL_DEPT_DEPTINFO d;
    std::memset(&d, 'q', sizeof d);
    tovr_sim::force_dept_record_output(0, d);
    cmt_account a("D9");
    EXPECT_EQ(0, m.retrieve_account(&a));
    EXPECT_EQ(std::string(193, 'q'), a.get_name());
    EXPECT_EQ(std::string(10, 'q'), a.get_id());
}

TEST_F(Accounts, ConfigurationSettings) {
    cmt_account_config c;
    EXPECT_EQ(0, c.get_limit_over());
    EXPECT_EQ(1, c.set_limit_over(2));
    EXPECT_EQ(2, c.get_limit_over());
    EXPECT_EQ(1, c.set_permit_anonymous(1));
    EXPECT_EQ(1, c.get_permit_anonymous());
    EXPECT_EQ(1, c.set_copy_print_count(1));
    EXPECT_EQ(1, c.get_copy_print_count());
    EXPECT_FALSE(c.get_mode());
    EXPECT_EQ(1, c.set_mode(true));
    EXPECT_TRUE(c.get_mode());
    EXPECT_EQ(1, tovr_sim::dept_mode());
    EXPECT_EQ("1", tovr_sim::calls("esv_zel_dept_set_dept_mode").back().args[0]);
    EXPECT_EQ((std::vector<Line>{{3, "[Enter], mode = [2]"}}), lines("cmt_account_config", "set_limit_over"));
    EXPECT_EQ((std::vector<Line>{{3, "[Enter], permit = [1]"}}), lines("cmt_account_config", "set_permit_anonymous"));
    EXPECT_EQ((std::vector<Line>{{3, "[Enter] mode = [1]"}}), lines("cmt_account_config", "set_copy_print_count"));
    EXPECT_EQ((std::vector<Line>{{3, "[Enter] mode = [1]"}}), lines("cmt_account_config", "set_mode"));
    EXPECT_EQ((std::vector<Line>{{3, "[Enter]"}, {3, "[Enter]"}}), lines("cmt_account_config", "get_mode"));

    // The device refuses values it does not know.
    tovr_sim::clear_trace();
    EXPECT_EQ(0, c.set_limit_over(7));
    EXPECT_EQ((std::vector<Line>{{3, "[Enter], mode = [7]"}, {0, "result = [67176450]"}}),
              lines("cmt_account_config", "set_limit_over"));
    EXPECT_EQ(0, c.set_permit_anonymous(-1));
    EXPECT_EQ(0, c.set_copy_print_count(3));
}

TEST_F(Accounts, ConfigurationFailuresAndForeignValues) {
    cmt_account_config c;
    for (const char* op : {"esv_zel_dept_get_limit_action_mode", "esv_zel_dept_get_invalid_dept_mode",
                           "esv_zel_dept_get_mix_mode", "esv_zel_dept_get_dept_mode"}) {
        tovr_sim::force_result(op, 0x04010801);
    }
    tovr_sim::clear_trace();
    EXPECT_EQ(-1, c.get_limit_over());
    EXPECT_EQ(-1, c.get_permit_anonymous());
    EXPECT_EQ(-1, c.get_copy_print_count());
    EXPECT_FALSE(c.get_mode());
    EXPECT_EQ((std::vector<Line>{{3, "[Enter]"}, {0, "result = [67176449]"}}), lines("cmt_account_config", "get_limit_over"));
    tovr_sim::force_dept_value_output("esv_zel_dept_get_dept_mode", 0, 2);
    EXPECT_FALSE(c.get_mode()) << "only 1 is on";
    tovr_sim::force_dept_value_output("esv_zel_dept_get_limit_action_mode", 0, 77);
    EXPECT_EQ(77, c.get_limit_over()) << "passed through";
    for (const char* op : {"esv_zel_dept_set_limit_action_mode", "esv_zel_dept_set_invalid_dept_mode",
                           "esv_zel_dept_set_mix_mode", "esv_zel_dept_set_dept_mode"}) {
        tovr_sim::force_result(op, 0x04010801);
    }
    EXPECT_EQ(0, c.set_limit_over(1));
    EXPECT_EQ(0, c.set_permit_anonymous(1));
    EXPECT_EQ(0, c.set_copy_print_count(1));
    EXPECT_EQ(0, c.set_mode(false));
}

TEST_F(Accounts, PrintedPagesAdvanceTheDepartmentsCounters) {
    cmt_account_manager m;
    cmt_account_config c;
    cmt_account a("7");
    ASSERT_EQ(0, m.add(&a));
    tovr_sim::SimUser u;
    u.login_name = "carol";
    u.password = "x";
    u.dept_id = 7;
    tovr_sim::add_local_user(u);
    tovr_sim::dept_page_printed("carol", true);
    EXPECT_EQ(0u, tovr_sim::dept_counter("7", 3)) << "accounting off";
    ASSERT_EQ(1, c.set_mode(true));
    tovr_sim::dept_page_printed("carol", true);
    tovr_sim::dept_page_printed("carol", false);
    tovr_sim::dept_page_printed("nobody", false);
    EXPECT_EQ(1u, tovr_sim::dept_counter("7", 3));
    EXPECT_EQ(1u, tovr_sim::dept_counter("7", 6));
    ASSERT_EQ(1, c.set_copy_print_count(1));
    tovr_sim::dept_page_printed("carol", true);
    tovr_sim::dept_page_printed("carol", false);
    EXPECT_EQ(2u, tovr_sim::dept_counter("7", 0));
    EXPECT_EQ(1, m.reset_counter("7"));
    EXPECT_EQ(0u, tovr_sim::dept_counter("7", 0));
    EXPECT_EQ(0u, tovr_sim::dept_counter("7", 3));
}

}  // namespace

#include "tovr_field_text.h"

namespace {

TEST(FieldText, IncompleteTrailingCharactersAreDropped) {
    using tarnwick::utf8_whole_length;
    EXPECT_EQ(3u, utf8_whole_length("abc", 3));
    EXPECT_EQ(0u, utf8_whole_length("", 0));
    const char two[] = "a\xC3\xA9";          // a, e-acute
    EXPECT_EQ(3u, utf8_whole_length(two, 3));
    EXPECT_EQ(1u, utf8_whole_length(two, 2));
    const char three[] = "\xE3\x81\x82\xE3\x81\x82";  // two hiragana A
    EXPECT_EQ(6u, utf8_whole_length(three, 6));
    EXPECT_EQ(3u, utf8_whole_length(three, 5));
    EXPECT_EQ(3u, utf8_whole_length(three, 4));
    const char four[] = "x\xF0\x9F\x98\x80";  // a character outside the BMP
    EXPECT_EQ(5u, utf8_whole_length(four, 5));
    EXPECT_EQ(1u, utf8_whole_length(four, 4));
    const char stray[] = "\x80\x80";           // no lead byte at all: left alone
    EXPECT_EQ(2u, utf8_whole_length(stray, 2));
}

TEST_F(Accounts, ANameCutInsideACharacterDropsTheBrokenRest) {
    std::string name = "a";
    for (int i = 0; i < 100; ++i) name += "\xE3\x81\x82";
    cmt_account a("U");
    a.set_name(name);
    EXPECT_EQ(name.substr(0, 190), a.get_name());
}

}  // namespace
