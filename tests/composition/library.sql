-- Prescriptions of doctor 1, of the pharmacy, of another doctor, and one of which nothing is known.
INSERT INTO t_UserChubang (UCB_PK, DTR_PK, UCB_Name, UCB_Date, UCB_Note) VALUES
    (1, 1, '나방', '2024-01-03 09:00:00', '겨울'), (2, 1, '가방', '2024-01-01 09:00:00', '봄'),
    (3, 1, '다''50%_[x]', '2024-01-02 09:00:00', '여름'), (4, 0, '한약국방', '2024-01-01', '공용'),
    (5, 2, '남의방', '2024-01-01', '겨울'), (6, 1, NULL, NULL, NULL);
INSERT INTO t_UserDetail (UDET_PK, UCB_PK, DGL_CallSign, DGL_PK, UDET_Weight, UDET_Order, UDET_Note) VALUES
    (11, 1, '당귀', 2, 5, 1, '볶은'), (12, 1, '작약', 3, 4, 2, ''),
    (21, 2, '작약', 3, 4, 5, ''), (22, 2, '당귀', 2, 3.5, 1, ''), (23, 2, '감초', 4, 2, 2, '넣지 말 것'),
    (24, 2, '천궁', 5, 3, 3, ''), (25, 2, '당귀', 2, 6, 4, '또'), (26, 2, '없는약', 99, 1, 6, ''),
    (31, 3, '작약', 3, 7, 1, '달인'),
    (41, 4, '작약', 3, 10, 1, ''), (42, 4, '녹각', 6, 2, 2, '');
