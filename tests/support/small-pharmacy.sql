-- A pharmacy of a few herbs and options, some of them withdrawn, too cheap or without a price today.
INSERT INTO t_DrugList (DGL_PK, DGL_CallSign, DGL_Internal, DGL_Default, DGL_IsValid) VALUES
    (1, '당귀', '일당귀', 0, 1), (2, '당귀', '토당귀', 1, 1), (3, '작약', '작약(국산)', 1, 1), (4, '감초', '감초(중국)', 1, 0),
    (5, '천궁', '천궁(국산)', 1, 1), (6, '녹각', '', 1, 1), (7, '계피', '계피(베트남)', 1, 1);
INSERT INTO t_DrugDanga (DGL_PK, DGD_Danga, DGD_StartDate, DGD_EndDate)
    SELECT DGL_PK, CASE DGL_PK WHEN 2 THEN 320 WHEN 7 THEN 0.02 ELSE 18 END, '2000-01-01',
    CASE DGL_PK WHEN 5 THEN '2001-12-31' ELSE '2099-12-31' END FROM t_DrugList;
INSERT INTO t_JobList (JL_PK, JL_Prompt, JL_Message, JL_DrugVisible, JL_TangJunVisible, JL_Order, JL_IsValid) VALUES
    (7, '첩약', '달이지 않습니다.', 1, 0, 2, 1), (5, '탕전', '달입니다.', 1, 1, 1, 1), (9, '기타구입', '', 0, 0, 3, 1),
    (8, '마감', '', 1, 1, 4, 0);
INSERT INTO t_TangJunMethodList (TJML_PK, TJML_Prompt, TJML_Message, TJML_Order) VALUES
    (1, '일반탕전', '100도', 1), (2, '압력탕전', '2시간', 2);
INSERT INTO t_TangJunAddList (TJAL_PK, TJAL_Prompt, TJAL_Message, TJAL_Slot, TJAL_Type, TJAL_Order) VALUES
    (1, '녹용', '8g', 3, 1, 1), (2, '산', '분말', 64, 1, 2), (3, '환', '꿀', 10, 2, 3);
