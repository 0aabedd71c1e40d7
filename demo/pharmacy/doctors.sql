-- The pharmacy itself; the server writes the addresses of its pages when it starts.
INSERT INTO t_PxInfo (PIF_PK, PIF_RegDate, PIF_Name, PIF_Pharmacist, PIF_Address, PIF_Tel, PIF_Cell, PIF_ServerIP,
                      PIF_CostURL, PIF_CostUpdateURL, PIF_FindZipURL) VALUES
    (1, '2025-01-02', '한들한약국', '정하윤', '경기도 고양시 일산동구 중앙로 1261', '031-900-1234', '010-9000-1234', '127.0.0.1',
     'http://127.0.0.1/cost', 'http://127.0.0.1/cost-update', 'http://127.0.0.1/zip');

INSERT INTO t_Doctor (DTR_PK, DTR_Name, DTR_LicenseNo, DTR_ID, DTR_PWD, DTR_Discount, DTR_Mileage, DTR_Cell, DTR_Email,
                      DTR_HosTel, DTR_HosName, DTR_HosZip, DTR_Address, DTR_RegDate, DTR_VIP,
                      DTR_IsUsePouch, DTR_IsUseBox, DTR_IsUseForm, DTR_ValidPay, DTR_Refer) VALUES
    (1, '김보원', '12045', 'doctor1', 'pass1', 5, 2, '010-2345-6789', 'bowon@example.com',
     '02-555-1001', '보원한의원', '06236', '서울특별시 강남구 테헤란로 152', '2025-01-06 10:00:00', 1, 1, 1500, 1, '111', ''),
    (2, '이청담', '17322', 'doctor2', 'pass2', 0, 0, '010-3456-7890', 'cheongdam@example.com',
     '051-740-2002', '청담한의원', '48058', '부산광역시 해운대구 센텀남대로 35', '2025-03-11 11:20:00', 0, 1, 0, 0, '010', '김보원'),
    (3, '고한라', '20518', 'doctor3', 'pass3', 2.5, 1.5, '010-4567-8901', 'halla@example.com',
     '064-720-3003', '한라한의원', '63219', '제주특별자치도 제주시 연북로 64', '2025-09-01 15:40:00', 0, 0, 2000, 1, '001', '');

-- Deposits. A row of CBJ_PK 0 is money paid in; the rows of the orders are mileage (orders.sql).
INSERT INTO t_Stock (DTR_PK, CBJ_PK, CBJ_IsCanceled, STK_Money, STK_Method, STK_Date, STK_Note) VALUES
    (1, 0, 0, 500000, 1, strftime('%Y-%m-%d 09:30:00', 'now', 'localtime', '-90 days'), '계좌이체'),
    (1, 0, 0, 300000, 1, strftime('%Y-%m-%d 13:05:00', 'now', 'localtime', '-30 days'), '계좌이체'),
    (1, 0, 0, 1000000, 2, strftime('%Y-%m-%d 10:45:00', 'now', 'localtime', '-7 days'), '카드');
