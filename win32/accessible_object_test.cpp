// The object that screen readers get, for a window of this test.
#include "win32/accessible_object.h"

#include <gtest/gtest.h>

namespace {

// Three children, 7 to 9, one below the other, ten pixels each; 9 is not shown, 7 and 8 are selected.
struct ToldRows {
    std::vector<int> selected{7, 8};
    int focused = 8;
    int acted = 0, tookFocus = 0;
};

}  // namespace

static ToldRows& RowsOf(const void* device) {
    return *static_cast<ToldRows*>(const_cast<void*>(device));
}

static bool DescribeRow(const void*, int child, AccessibleItem& item) {
    const bool isSelf = child == CHILDID_SELF;
    if (!isSelf && (child < 7 || child > 9)) return false;
    item.role = isSelf ? ROLE_SYSTEM_DOCUMENT : ROLE_SYSTEM_LISTITEM;
    item.state = child;
    item.name = isSelf ? L"Rows" : L"Row " + std::to_wstring(child);
    if (child == 8) item.action = L"Read";
    if (child < 9) item.place = isSelf ? RECT{0, 0, 100, 50} : RECT{0, 10 * (child - 7), 60, 10 * (child - 6)};
    return true;
}

static AccessibleWindow AboutRows(ToldRows& rows) {
    return {
        .device = &rows,
        .describe = DescribeRow,
        .shown =
            [](const void*) {
                return std::vector{7, 8};
            },
        .selected = [](const void* device) { return RowsOf(device).selected; },
        .focused = [](const void* device) { return RowsOf(device).focused; },
        .childAt = [](const void*, int, int y) { return y < 20 ? 7 + y / 10 : CHILDID_SELF; },
        .takeFocus = [](const void* device, int child) { RowsOf(device).tookFocus = child; },
        .act = [](const void* device, int child) { RowsOf(device).acted = child; },
    };
}

static VARIANT Child(LONG number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

static std::wstring Taken(BSTR text) {
    std::wstring taken = text ? text : L"";
    SysFreeString(text);
    return taken;
}

struct AccessibleObjectTest : testing::Test {
    ToldRows rows;
    HWND window = nullptr;
    IAccessible* object = nullptr;

    void SetUp() override {
        window = CreateWindowExA(0, "Static", "", WS_POPUP | WS_VISIBLE, 30, 40, 100, 50, nullptr, nullptr, nullptr,
                                 nullptr);
        const LRESULT answer = AnswerGetObject(window, AboutRows(rows), 0, OBJID_CLIENT);
        ASSERT_GT(answer, 0);
        ASSERT_EQ(ObjectFromLresult(answer, __uuidof(IAccessible), 0, reinterpret_cast<void**>(&object)), S_OK);
    }
    void TearDown() override {
        if (object) object->Release();
        if (window) DestroyWindow(window);
    }
    int Navigated(LONG direction, LONG from, HRESULT expected = S_OK) {
        VARIANT end{};
        EXPECT_EQ(object->accNavigate(direction, Child(from), &end), expected) << direction << " from " << from;
        return end.vt == VT_I4 ? static_cast<int>(end.lVal) : -1;
    }
    int Hit(LONG x, LONG y) {
        VARIANT child{};
        object->accHitTest(x, y, &child);
        return child.vt == VT_I4 ? static_cast<int>(child.lVal) : -1;
    }
};

TEST_F(AccessibleObjectTest, DescribesItsChildren) {
    BSTR name = nullptr;
    EXPECT_EQ(object->get_accName(Child(CHILDID_SELF), &name), S_OK);
    EXPECT_EQ(Taken(name), L"Rows");
    EXPECT_EQ(object->get_accName(Child(9), &name), S_OK);
    EXPECT_EQ(Taken(name), L"Row 9");
    EXPECT_EQ(object->get_accValue(Child(9), &name), S_FALSE);
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(object->get_accHelp(Child(9), &name), DISP_E_MEMBERNOTFOUND);
    VARIANT number{};
    EXPECT_EQ(object->get_accRole(Child(7), &number), S_OK);
    EXPECT_EQ(number.lVal, ROLE_SYSTEM_LISTITEM);
    EXPECT_EQ(object->get_accState(Child(7), &number), S_OK);
    EXPECT_EQ(number.lVal, 7);
    LONG count = 0;
    EXPECT_EQ(object->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 2);
    IDispatch* child = object;
    EXPECT_EQ(object->get_accChild(Child(7), &child), S_FALSE);
    EXPECT_EQ(child, nullptr);
    IDispatch* parent = nullptr;
    EXPECT_EQ(object->get_accParent(&parent), S_OK);
    ASSERT_NE(parent, nullptr);
    parent->Release();
}

TEST_F(AccessibleObjectTest, RefusesChildrenThatDoNotExist) {
    VARIANT text{}, number{};
    text.vt = VT_BSTR;
    LONG place[4];
    for (const VARIANT& child : {Child(6), Child(10), Child(-1), text, VARIANT{}}) {
        BSTR name = nullptr;
        IDispatch* found = nullptr;
        EXPECT_EQ(object->get_accName(child, &name), E_INVALIDARG);
        EXPECT_EQ(object->get_accHelp(child, &name), E_INVALIDARG);
        EXPECT_EQ(object->get_accRole(child, &number), E_INVALIDARG);
        EXPECT_EQ(object->get_accChild(child, &found), E_INVALIDARG);
        EXPECT_EQ(object->accLocation(&place[0], &place[1], &place[2], &place[3], child), E_INVALIDARG);
        EXPECT_EQ(object->accNavigate(NAVDIR_NEXT, child, &number), E_INVALIDARG);
        EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, child), E_INVALIDARG);
        EXPECT_EQ(object->accDoDefaultAction(child), E_INVALIDARG);
    }
}

TEST_F(AccessibleObjectTest, TellsPlacesOnTheScreen) {
    LONG left = 0, top = 0, width = 0, height = 0;
    EXPECT_EQ(object->accLocation(&left, &top, &width, &height, Child(8)), S_OK);
    EXPECT_EQ(left, 30);
    EXPECT_EQ(top, 50);
    EXPECT_EQ(width, 60);
    EXPECT_EQ(height, 10);
    EXPECT_EQ(object->accLocation(&left, &top, &width, &height, Child(9)), S_FALSE) << "not shown";
    EXPECT_EQ(width, 0);
    EXPECT_EQ(Hit(30, 40), 7);
    EXPECT_EQ(Hit(129, 59), 8);
    EXPECT_EQ(Hit(30, 60), CHILDID_SELF);
    EXPECT_EQ(Hit(29, 40), -1);
    EXPECT_EQ(Hit(30, 90), -1);
}

TEST_F(AccessibleObjectTest, NavigatesAmongWhatIsShown) {
    EXPECT_EQ(Navigated(NAVDIR_FIRSTCHILD, CHILDID_SELF), 7);
    EXPECT_EQ(Navigated(NAVDIR_LASTCHILD, CHILDID_SELF), 8);
    EXPECT_EQ(Navigated(NAVDIR_NEXT, 7), 8);
    EXPECT_EQ(Navigated(NAVDIR_DOWN, 7), 8);
    EXPECT_EQ(Navigated(NAVDIR_PREVIOUS, 8), 7);
    EXPECT_EQ(Navigated(NAVDIR_UP, 8), 7);
    EXPECT_EQ(Navigated(NAVDIR_NEXT, 8, S_FALSE), -1);
    EXPECT_EQ(Navigated(NAVDIR_PREVIOUS, 7, S_FALSE), -1);
    EXPECT_EQ(Navigated(NAVDIR_LEFT, 8, S_FALSE), -1);
    EXPECT_EQ(Navigated(NAVDIR_NEXT, 9, S_FALSE), -1) << "not shown";
    EXPECT_EQ(Navigated(NAVDIR_NEXT, CHILDID_SELF, S_FALSE), -1);
    EXPECT_EQ(Navigated(NAVDIR_FIRSTCHILD, 7, E_INVALIDARG), -1);
    EXPECT_EQ(Navigated(NAVDIR_MAX, 7, E_INVALIDARG), -1);
}

TEST_F(AccessibleObjectTest, TellsFocusAndSelection) {
    VARIANT answer{};
    EXPECT_EQ(object->get_accFocus(&answer), S_OK);
    EXPECT_EQ(answer.lVal, 8);
    rows.focused = -1;
    EXPECT_EQ(object->get_accFocus(&answer), S_FALSE);
    EXPECT_EQ(answer.vt, VT_EMPTY);
    EXPECT_EQ(object->get_accSelection(&answer), S_OK);
    ASSERT_EQ(answer.vt, VT_UNKNOWN);
    IEnumVARIANT* list = nullptr;
    ASSERT_EQ(answer.punkVal->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(&list)), S_OK);
    VARIANT items[3];
    ULONG count = 0;
    EXPECT_EQ(list->Next(3, items, &count), S_FALSE);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(items[1].lVal, 8);
    list->Release();
    answer.punkVal->Release();
    rows.selected = {7};
    EXPECT_EQ(object->get_accSelection(&answer), S_OK);
    EXPECT_EQ(answer.lVal, 7);
    rows.selected.clear();
    EXPECT_EQ(object->get_accSelection(&answer), S_FALSE);
}

TEST_F(AccessibleObjectTest, ListsItsChildren) {
    IEnumVARIANT* list = nullptr;
    ASSERT_EQ(object->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(&list)), S_OK);
    VARIANT items[2];
    ULONG count = 0;
    EXPECT_EQ(list->Next(1, items, nullptr), S_OK);
    EXPECT_EQ(items[0].lVal, 7);
    IEnumVARIANT* copy = nullptr;
    ASSERT_EQ(list->Clone(&copy), S_OK);
    EXPECT_EQ(copy->Next(2, items, &count), S_FALSE);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(items[0].lVal, 8);
    EXPECT_EQ(copy->Skip(1), S_FALSE);
    EXPECT_EQ(copy->Reset(), S_OK);
    EXPECT_EQ(copy->Skip(2), S_OK);
    copy->Release();
    IUnknown *ofList = nullptr, *ofObject = nullptr;
    list->QueryInterface(__uuidof(IUnknown), reinterpret_cast<void**>(&ofList));
    object->QueryInterface(__uuidof(IUnknown), reinterpret_cast<void**>(&ofObject));
    EXPECT_EQ(ofList, ofObject) << "two interfaces of one object";
    ofList->Release();
    ofObject->Release();
    list->Release();
}

TEST_F(AccessibleObjectTest, ActsOnItsChildren) {
    EXPECT_EQ(object->accDoDefaultAction(Child(8)), S_OK);
    EXPECT_EQ(rows.acted, 8);
    EXPECT_EQ(object->accDoDefaultAction(Child(7)), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, Child(7)), S_OK);
    EXPECT_EQ(rows.tookFocus, 7);
    EXPECT_EQ(object->accSelect(SELFLAG_TAKESELECTION, Child(7)), DISP_E_MEMBERNOTFOUND);
}

TEST_F(AccessibleObjectTest, OutlivesItsWindow) {
    IEnumVARIANT* list = nullptr;
    ASSERT_EQ(object->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(&list)), S_OK);
    DestroyWindow(window);
    window = nullptr;
    BSTR name = nullptr;
    VARIANT answer{};
    LONG place[4];
    IDispatch* parent = nullptr;
    EXPECT_EQ(object->get_accName(Child(7), &name), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accRole(Child(7), &answer), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accParent(&parent), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accChildCount(&place[0]), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accFocus(&answer), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accSelection(&answer), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->accHitTest(40, 45, &answer), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->accLocation(&place[0], &place[1], &place[2], &place[3], Child(7)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->accNavigate(NAVDIR_NEXT, Child(7), &answer), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->accDoDefaultAction(Child(8)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, Child(7)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(list->Reset(), CO_E_OBJNOTCONNECTED);
    list->Release();
    EXPECT_EQ(rows.acted, 0);
}

TEST_F(AccessibleObjectTest, LeavesOtherQuestionsToTheSystem) {
    EXPECT_EQ(AnswerGetObject(window, AboutRows(rows), 0, OBJID_WINDOW), 0);
    EXPECT_EQ(AnswerGetObject(window, AboutRows(rows), 0, OBJID_CARET), 0);
}
