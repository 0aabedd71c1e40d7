#include "platform/odbc/Answer.h"

namespace zelvo::odbc {

SQLSMALLINT Answer::columnCount() const {
    SQLSMALLINT columns = 0;
    statement_.require(SQLNumResultCols(statement_.get(), &columns));
    return columns;
}

SQLLEN Answer::rowCount() const {
    SQLLEN count = -1;
    return SQL_SUCCEEDED(SQLRowCount(statement_.get(), &count)) ? count : -1;
}

void Answer::sign() const {
    if (givenUp_) throw ServerFault("the rows were given up", ServerFault::Kind::Late, "HY008");
    sign_();
}

bool Answer::next() const {
    sign_();
    const SQLRETURN result = SQLMoreResults(statement_.get());
    sign_();
    if (result == SQL_NO_DATA) return false;
    statement_.require(result);
    return true;
}

}  // namespace zelvo::odbc
