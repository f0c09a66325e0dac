#include <gtest/gtest.h>

#include "data/mysql_like.h"

TEST(PatternsForMySql, BackslashOfAPatternIsDoubled) {
    EXPECT_EQ(modelliLikeMySql("SELECT 1 FROM T WHERE A LIKE '%A\\%' OR B NOT LIKE '\\'"),
              "SELECT 1 FROM T WHERE A LIKE '%A\\\\%' OR B NOT LIKE '\\\\'");
}

TEST(PatternsForMySql, BackslashOfAPlainTextStays) {
    const QString sql = "SELECT 1 FROM T WHERE A = 'A\\' AND B LIKE 'x%' AND C = ' LIKE ''\\'' '";
    EXPECT_EQ(modelliLikeMySql(sql), sql);
}

TEST(PatternsForMySql, QuotesOfAPatternStay) {
    EXPECT_EQ(modelliLikeMySql("A like '%d''a\\%'"), "A like '%d''a\\\\%'");
}
