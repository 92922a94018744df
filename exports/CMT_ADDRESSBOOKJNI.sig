long new_cmt_address_book()
void delete_cmt_address_book(long)
java.lang.Object[] cmt_address_book_search_address(long, cmt_address_book, int, java.lang.Object)
