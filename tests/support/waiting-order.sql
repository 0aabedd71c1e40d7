-- An order of two herbs that waits, every column of it its own; [N] is its key.
INSERT OR IGNORE INTO t_Doctor (DTR_PK, DTR_Name, DTR_ID, DTR_PWD) VALUES (1, '이한의', 'a', 'a'), (2, '최한의', 'b', 'b');
INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK, Patient_PK, Patient_Name, Patient_Age, Patient_Sex, Patient_Jumin, Patient_Email,
    CBJ_IsPaid, CBJ_JobList_PK, CBJ_TJML_PK, CBJ_TJAL_Slot, CBJ_JojeCost, CBJ_DrugCost, CBJ_BesongCost, CBJ_VATCost,
    CBJ_ElseCost, CBJ_UserCost, CBJ_UserCostNoVAT, CBJ_UserCostNote, CBJ_UserCostNoteNoVAT, CBJ_Chubsu, CBJ_PouchAmount,
    CBJ_PouchTotal, CBJ_DayTuyak, CBJ_Tuyakilsu, CBJ_BesongMethod, CBJ_PayMethod, CBJ_Send_Name, CBJ_Send_Zip,
    CBJ_Send_Address, CBJ_Send_Tel, CBJ_Send_Cell, CBJ_Send_Hospital, CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_Reci_Tel,
    CBJ_Reci_Cell, CBJ_Reci_Date, CBJ_BesongMsg, CBJ_Msg, CBJ_RegDate, CBJ_State)
SELECT i, 1, 4000 + i, '환자' || i, 30 + i, i % 2, '80010' || i || '-1', 'p' || i || '@x.kr',
    1, 5, 2, '001', 3000 + i, 6760, 4000, 1000, -i, 100, 20, 'with', 'without', 20, 100 + i, 17.5, 2.5, 7, 2, 1,
    '이한의' || i, '0300' || i, '종로 ' || i, '02-700-000' || i, '010-700-000' || i, '한의원' || i, '0600' || i, '강남 ' || i,
    '02-800-000' || i, '010-800-000' || i, '1900-01-01', '부재시 ' || i, '잘 ' || i, '2024-05-0' || i || ' 10:00:00', 0
    FROM (SELECT [N] AS i);
INSERT INTO t_CBJDetail (CBJ_PK, DGL_PK, DGL_CallSign, DET_Weight, DET_Danga, DET_Money, DET_Note, DET_Order)
    VALUES ([N], 3, '작약', 1, 18, 18, '', 2), ([N], 2, '당귀', 1, 320, 320, '볶은 [N]', 1);
DROP INDEX IF EXISTS ix_CBJDetail_Order; -- the lines come as they were written
INSERT INTO t_CBJcostDetail (CBJ_PK, CCD_JojeCost, CCD_BesongCost, CCD_ElseCost) VALUES ([N], '조제 [N]', '택배', '');
INSERT INTO t_EatGuide VALUES ([N], '식후 [N]', '우리 [N]', '02-1-[N]');
INSERT INTO t_Stock (DTR_PK, CBJ_PK, STK_Money) VALUES (1, [N], 500);
